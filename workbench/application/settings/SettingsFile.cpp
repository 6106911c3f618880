// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/settings/SettingsFile.h"

#include "workbench/application/settings/SettingsFormat.h"
#include "workbench/application/settings/settings_checks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

enum class Use { ReadAndWrite, ReadOnly, None };

struct Verdict
{
    Use use;
    QString error;
};

Verdict look_at(const QString& path)
{
    const auto useless = [](const QString& reason) {
        return Verdict{Use::None, u"ERROR: %1. The program runs with default settings, and what is set is "
                                  "lost at its end.\n"_s.arg(reason)};
    };
    const QFileInfo info(path);
    bool is_damaged = false;
    if (info.exists()) {
        if (!info.isFile())
            return useless(u"\"%1\" is no file for settings"_s.arg(path));
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return useless(u"the settings file \"%1\" cannot be read: %2"_s.arg(path, file.errorString()));
        is_damaged = !are_readable_settings(path);
        // It may be a file of quite another kind, given by mistake.
        if (is_damaged && !file.readAll().contains("[ostrelgui]"))
            return useless(u"\"%1\" holds something else than settings, and is left as it is"_s.arg(path));
    }
    // Opens what QSettings will write, beside the file, and drops it.
    QSaveFile probe(path);
    if (!probe.open(QIODevice::WriteOnly)) {
        const QString reason =
            u"the settings file \"%1\" cannot be written: %2"_s.arg(path, probe.errorString());
        if (!info.exists())
            return useless(reason);
        return {Use::ReadOnly,
                u"ERROR: %1. Its settings hold, but changes are lost at the end.\n"_s.arg(reason)};
    }
    probe.cancelWriting();
    if (!is_damaged)
        return {Use::ReadAndWrite, {}};
    const std::optional<QString> told = keep_unreadable_settings(path);
    return told ? Verdict{Use::ReadAndWrite, *told}
                : useless(u"the settings file \"%1\" cannot be read in full, nor be moved aside"_s.arg(path));
}

void copy(const QString& from, const QString& to)
{
    QFile source(from);
    QFile target(to);
    if (source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly))
        target.write(source.readAll());
}

} // namespace

SettingsFile::SettingsFile(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    Verdict verdict = look_at(path);

    // Without a temporary directory nothing is read and written, rather than the user's own settings.
    const QString directory = mDirectory.is_valid() ? mDirectory.path() : u"/dev/null"_s;
    QSettings::setDefaultFormat(settings_format());
    QSettings::setPath(settings_format(), QSettings::UserScope, directory + u"/user"_s);
    QSettings::setPath(settings_format(), QSettings::SystemScope, directory + u"/none"_s);
    const QString place = QSettings().fileName();
    const bool ready = mDirectory.make_folder(QFileInfo(place).path());

    if (verdict.use == Use::ReadAndWrite && (!ready || !QFile::link(path, place)))
        verdict = {Use::None,
                   u"ERROR: there is no temporary directory for the way to the settings file "
                   "\"%1\": %2. What is set is lost at the end.\n"_s.arg(path, mDirectory.error())};
    if (verdict.use == Use::ReadOnly)
        copy(path, place);
    mError = verdict.error;
    mDataDirectory = verdict.use == Use::ReadAndWrite ? path + u".data"_s : directory + u"/data"_s;
}

} // namespace fennar
