// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/exchange/exchange_files.h"

#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ShapeKernel.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** Other components read a whole file at once. */
constexpr qint64 most_bytes = qint64(1) << 28;

const auto converter_name = u"the converter"_s;
const auto no_result = u"the converter has left no result"_s;

/** A folder with the files of a job, which goes with it. */
class ConverterJob
{
public:
    explicit ConverterJob(const QByteArray& first_line) : mText(first_line + '\n')
    {
        if (!mDirectory.is_valid())
            throw GeometryError(u"no temporary folder can be made: "_s + mDirectory.error());
    }

    QDir folder() const { return QDir(mDirectory.path()); }
    QString path(const QString& name) const { return mDirectory.path(name); }
    void add(const QByteArray& line) { mText += line + '\n'; }
    /** Lets the engine read @p file under @p name: it goes by the ending, and a job cannot hold each name
     * that a file can have. */
    void add_input(const QString& file, const QString& name)
    {
        if (!QFile::link(QFileInfo(file).absoluteFilePath(), path(name)))
            throw GeometryError(u"a temporary file cannot be made"_s);
        mInput = file;
        mInputPath = path(name);
        add("input " + name.toUtf8());
    }
    bool run(const QString& program, const MesherListener& listener) const
    {
        write_job_file(path(u"job"_s), mText);
        MesherListener renaming = listener;
        if (listener.message)
            renaming.message = [&](MesherReport::Message message) {
                message.text = with_users_name(message.text);
                listener.message(message);
            };
        try {
            return run_engine_process(program, path(u"job"_s), converter_name, renaming);
        } catch (const GeometryError& error) {
            throw GeometryError(with_users_name(error.message()));
        }
    }

private:
    QString with_users_name(QString text) const
    {
        return mInputPath.isEmpty() ? text : text.replace(mInputPath, mInput);
    }

    TemporaryFolder mDirectory;
    QByteArray mText;
    QString mInput;
    QString mInputPath;
};

QString shown(const QString& file)
{
    QString text = file;
    text.replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s);
    return u'"' + text + u'"';
}

GeometryError cannot_export(const QString& file, const QString& reason)
{
    return GeometryError(u"%1 cannot be written: %2"_s.arg(shown(file), reason));
}

/** Refuses what nobody needs to start the engine for. */
void check_file(const QString& file, const Format& format)
{
    const QFileInfo info(file);
    if (!info.exists())
        throw GeometryError(u"there is no such file"_s);
    if (!info.isFile())
        throw GeometryError(info.isDir() ? u"it is a folder"_s : u"it is not a regular file"_s);
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly))
        throw GeometryError(content.errorString());
    const QByteArray begin = content.read(4096);
    content.seek(std::max<qint64>(info.size() - 64, 0));
    const QString reason = mismatch(format, begin, content.readAll(), info.size());
    if (!reason.isEmpty())
        throw GeometryError(reason);
}

void check_target(const QString& file)
{
    const QFileInfo info(file);
    // Replacing a device or a pipe by a file would be bad for more than this program.
    if (info.exists() && !info.isFile())
        throw cannot_export(file, info.isDir() ? u"it is a folder"_s : u"it is not a regular file"_s);
    if (!QFileInfo(info.absolutePath()).isDir())
        throw cannot_export(file, u"there is no folder "_s + shown(info.absolutePath()));
}

/** Calls what another component has brought; whatever it throws becomes a GeometryError. */
template <typename Work>
auto foreign(const Work& work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw GeometryError(QString::fromUtf8(error.what()).simplified());
    } catch (...) {
        throw GeometryError(u"the reason is unknown"_s);
    }
}

Surface read_foreign(const QString& file, const Format& format)
{
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly))
        throw GeometryError(content.errorString());
    if (content.size() > most_bytes)
        throw GeometryError(u"it has more than %1 bytes"_s.arg(most_bytes));
    Surface surface = foreign([&] { return format.foreign->read(content.readAll()); });
    check_corners(surface);
    return surface;
}

/** What solids from the file are named after. */
QString solid_name(const QString& file)
{
    QString name = QFileInfo(file).completeBaseName();
    for (QChar& c : name) {
        if (!GeometryModel::is_name(u"a"_s + c))
            c = u'_';
    }
    while (!name.isEmpty() && (!GeometryModel::is_name(name) || name.front() == u'_'))
        name.remove(0, 1);
    return name.isEmpty() || solid_keywords().contains(name) ? u"solid"_s : name;
}

QString program_for(const Format& format, const QDir& programs)
{
    return programs.filePath(format.content == Format::Content::Solids ? u"fennar-solids"_s
                                                                       : u"fennar-converter"_s);
}

std::optional<Imported> read_solids(const QString& file, const Format& format, GeometryModel& model,
                                    const QDir& programs, const MesherListener& listener)
{
    const QString ending = format.endings.first();
    ConverterJob job("read " + ending.toUtf8());
    job.add_input(file, u"input."_s + ending);
    job.add("output solid");
    // The kernel gets ready while the program does.
    MesherListener waiting = listener;
    waiting.go_on = [&listener] {
        ShapeKernel::get();
        return !listener.go_on || listener.go_on();
    };
    if (!job.run(program_for(format, programs), waiting))
        return std::nullopt;
    QList<Shape> shapes;
    for (int i = 1; QFile::exists(job.path(u"solid%1.brep"_s.arg(i))); ++i)
        shapes << Shape::from_brep(read_job_file(job.path(u"solid%1.brep"_s.arg(i)), no_result));
    if (shapes.isEmpty())
        throw GeometryError(u"it holds no solid"_s);
    Imported result;
    result.solids = model.add(shapes, solid_name(file));
    return result;
}

std::optional<Imported> read_mesh(const QString& file, const Format& format, GeometryModel& model,
                                  const QDir& programs, const MesherListener& listener)
{
    ConverterJob job(format.foreign ? "read surface" : "read mesh");
    if (format.foreign) {
        write_job_file(job.path(u"input.surface"_s), pack_surface(read_foreign(file, format)));
        job.add("input input.surface");
    } else {
        job.add_input(file, u"input."_s + format.endings.first());
    }
    job.add("output mesh.msh");
    job.add("statistics statistics");
    if (!job.run(program_for(format, programs), listener))
        return std::nullopt;
    auto mesh = std::make_shared<Mesh>();
    mesh->file = file;
    mesh->revision = model.revision();
    read_mesh_files(job.folder(), converter_name, *mesh);
    Imported result;
    const QList<QByteArray> surface =
        read_job_file(job.path(u"surface"_s), no_result).simplified().split(' ');
    if (surface.size() == 2) {
        result.closed = surface[0] == "closed";
        result.volume = surface[1].toDouble();
    }
    result.mesh = mesh;
    model.set_mesh(mesh);
    return result;
}

/** Lets the converter make a file, of shapes or else of a mesh. Empty if the listener has ended it. */
std::optional<QByteArray> convert(const Format& format, const QList<Shape>& shapes, const Mesh* mesh,
                                  double size, const QDir& programs, const MesherListener& listener)
{
    const QString ending = format.foreign ? u"surface"_s : format.endings.first();
    const QString output = u"output."_s + ending;
    ConverterJob job("write " + ending.toUtf8());
    if (shapes.isEmpty()) {
        write_job_file(job.path(u"mesh.msh"_s), mesh->msh);
        job.add("mesh mesh.msh");
    } else {
        write_job_file(job.path(u"solids.brep"_s), Shape::joined(shapes).brep());
        job.add("solids solids.brep");
        job.add("size " + QByteArray::number(size, 'g', 17));
    }
    job.add("output " + output.toUtf8());
    if (!job.run(program_for(format, programs), listener))
        return std::nullopt;
    QByteArray content = read_job_file(job.path(output), no_result);
    if (format.foreign) {
        const Surface surface = unpack_surface(content);
        return foreign([&] { return format.foreign->write(surface); });
    }
    if (!is_whole(format, content))
        throw GeometryError(u"the converter has left a part of it; the disk may be full"_s);
    return content;
}

} // namespace

std::optional<Imported> import_file(const QString& file, const Format& format, GeometryModel& model,
                                    const QDir& programs, const MesherListener& listener)
{
    try {
        check_file(file, format);
        const auto read = format.content == Format::Content::Solids ? &read_solids : &read_mesh;
        return read(file, format, model, programs, listener);
    } catch (const GeometryError& error) {
        throw GeometryError(u"%1 cannot be imported: %2"_s.arg(shown(file), error.message()));
    }
}

bool export_file(const QString& file, const Format& format, const ExportSource& source,
                 const GeometryModel& model, const QDir& programs, const MesherListener& listener)
{
    check_target(file);
    if (source.mesh && !model.mesh())
        throw GeometryError(u"there is no mesh"_s);
    QList<Shape> shapes;
    if (!source.mesh) {
        for (const int id : source.solids.isEmpty() ? model.ids() : source.solids)
            shapes << model.shape(id);
        if (shapes.isEmpty())
            throw GeometryError(u"there is no solid"_s);
    }
    try {
        std::optional<QByteArray> content;
        // The model has shapes and the mesh in these formats; to start the converter would take longer.
        const bool is_ready = format.name == u"BREP" || format.name == u"MSH";
        if (!is_ready)
            content = convert(format, shapes, model.mesh().get(), source.size, programs, listener);
        else if (!listener.go_on || listener.go_on())
            content = source.mesh ? model.mesh()->msh : Shape::joined(shapes).brep();
        if (!content)
            return false;
        const QString reason = write_whole_file(file, {*content});
        if (!reason.isEmpty())
            throw GeometryError(reason);
        return true;
    } catch (const GeometryError& error) {
        throw cannot_export(file, error.message());
    }
}

} // namespace fennar::geometry
