// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/GeometryDocument.h"

#include "workbench/components/geometry/exchange/model_format.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

#include <new>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** The longest file name that a message shows whole. */
constexpr qsizetype most_shown = 300;

GeometryContents read(const QString& path)
{
    // Opening what is no file, as a pipe, could wait for ever.
    const QFileInfo info(path);
    if (!info.exists())
        throw GeometryError(u"there is no such file"_s);
    if (!info.isFile())
        throw GeometryError(u"it is not a regular file"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw GeometryError(file.errorString());
    return read_model(file);
}

/** Runs something about a file; why it fails is told in one sentence, which begins with @p failure. */
template <typename Work>
void about(const QString& failure, const QString& file, const QString& comfort, const Work& work)
{
    QString reason;
    try {
        work();
        return;
    } catch (const GeometryError& error) {
        reason = error.message();
    } catch (const std::bad_alloc&) {
        reason = u"there is not enough memory"_s;
    }
    throw GeometryError(failure.arg(CommandError::shown(file, most_shown), reason) + comfort);
}

} // namespace

GeometryDocument::GeometryDocument(GeometryModel& model) : mModel(model), mSavedState(model.state()) {}

void GeometryDocument::clear()
{
    mModel.replace({});
    set_unmodified({});
}

void GeometryDocument::open(const QString& file)
{
    about(u"the model %1 cannot be opened: %2"_s, file, u"; nothing has changed"_s,
          [&] { mModel.replace(read(file)); });
    set_unmodified(file);
}

void GeometryDocument::save(const QString& file)
{
    const QString target = file.isEmpty() ? mFile : file;
    if (target.isEmpty())
        throw GeometryError(u"the model has no file yet; \"save FILE\" gives it one"_s);
    about(u"the model cannot be saved in %1: %2"_s, target, u"; it stays in memory, unsaved"_s, [&] {
        const QString reason = write_whole_file(target, contents());
        if (!reason.isEmpty())
            throw GeometryError(reason);
    });
    set_unmodified(target);
}

QByteArrayList GeometryDocument::contents() const
{
    return write_model(mModel.contents());
}

void GeometryDocument::recover(const QByteArray& contents, const QString& file)
{
    about(u"the model of %1 cannot be recovered: %2"_s, file, u"; nothing has changed"_s, [&] {
        QBuffer buffer;
        buffer.setData(contents);
        buffer.open(QIODevice::ReadOnly);
        mModel.replace(read_model(buffer));
    });
    mFile.clear();
    mEarlierFile = file;
    touch();
}

void GeometryDocument::set_unmodified(const QString& file)
{
    mFile = file;
    mEarlierFile.clear();
    mSavedState = mModel.state();
    UnsavedWorks::instance().tell_settled(u"model"_s);
}

} // namespace fennar::geometry
