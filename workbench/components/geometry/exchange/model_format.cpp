// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/exchange/model_format.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/sdk/core/commands/CommandError.h"

#include <QCryptographicHash>
#include <QIODevice>
#include <QStringDecoder>

#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

constexpr auto checksum_method = QCryptographicHash::Sha256;

/** Only a line with the name of a solid can be long at all; no keyboard makes a longer one. */
constexpr qsizetype longest_line = 16 << 20;

/** How much of a line is read at once. */
constexpr qint64 line_chunk = 4096;

/** No solid has a greater id, and no model has had more changes. */
constexpr int most_ids = 1'000'000'000;
constexpr qint64 most_changes = 1'000'000'000'000'000;

/** The begin of the first line; the version follows. */
const QByteArray magic = "fennar model ";

/** Exact to the last bit, in every locale. */
QByteArray exact(double value)
{
    return QByteArray::number(value, 'g', 17);
}

QByteArrayList write_mesh(const Mesh& mesh, qint64 age)
{
    QByteArrayList result;
    QByteArray head = "mesh-size " + exact(mesh.size) + "\nmesh-age " + QByteArray::number(age) +
                      "\nmesh-nodes " + QByteArray::number(mesh.nodes) + '\n';
    for (qsizetype i = 0; i < mesh.solids.size(); ++i) {
        const QByteArray surface = mesh.surfaces.value(i);
        head += "mesh-solid " + mesh.solids[i].toUtf8() + "\nmesh-surface " +
                QByteArray::number(surface.size()) + '\n';
        result << std::exchange(head, "\n") << surface;
    }
    for (const Mesh::Elements& elements : mesh.elements)
        head += "mesh-elements " + QByteArray::number(elements.dimension) + ' ' +
                QByteArray::number(elements.count) + ' ' + elements.kind.toUtf8() + '\n';
    head += "mesh " + QByteArray::number(mesh.msh.size()) + '\n';
    return result << head << mesh.msh << "\n";
}

/** A byte order mark at the beginning would be part of the text: lines have none. Half a letter at the end is
 * shown as any other wrong byte: nothing follows that could complete it. */
QString text_of(const QByteArray& bytes)
{
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless);
    return decoder(bytes);
}

/** Walks through the file; each function stands at what it is about and leaves behind it. */
class Reader
{
public:
    explicit Reader(QIODevice& device) : mDevice(device) {}

    GeometryContents run()
    {
        read_first_line();
        next_line();
        mContents.last_id = number<int>(need("last-id"), 0, most_ids);
        next_line();
        while (mWord == "solid")
            read_solid();
        if (mWord == "mesh-size")
            read_mesh();
        need("end");
        check_end();
        return mContents;
    }

private:
    /** What is wrong with the line that was read last. To be thrown. */
    GeometryError wrong(const QString& what) const
    {
        return GeometryError(what + u" at byte %1"_s.arg(mLineStart));
    }

    GeometryError cut_off() const { return GeometryError(u"it is cut off at byte %1"_s.arg(mDevice.size())); }

    /** The next line without its end. */
    QByteArray read_line()
    {
        mLineStart = mDevice.pos();
        QByteArray line;
        while (!line.endsWith('\n')) {
            const QByteArray chunk = mDevice.readLine(line_chunk);
            if (chunk.isEmpty())
                throw cut_off();
            line += chunk;
            if (line.size() > longest_line)
                throw wrong(u"a line is too long"_s);
        }
        // The last line holds the checksum of all before it.
        if (!line.startsWith("end "))
            mChecksum.addData(line);
        line.chop(1);
        return line;
    }

    void read_first_line()
    {
        if (mDevice.size() == 0)
            throw GeometryError(u"it is empty"_s);
        const QByteArray begin = mDevice.peek(magic.size());
        if (begin != magic) {
            if (magic.startsWith(begin))
                throw cut_off();
            throw GeometryError(u"it does not begin as a model file does, with \"%1\""_s.arg(
                QString::fromLatin1(magic.trimmed())));
        }
        const QByteArray text = read_line().sliced(magic.size());
        bool ok = false;
        const int version = text.toInt(&ok);
        if (!ok || version < 1 || QByteArray::number(version) != text)
            throw GeometryError(
                u"the version of its format, %1, is not a number"_s.arg(CommandError::shown(text_of(text))));
        if (version > model_format_version)
            throw GeometryError(
                u"it has version %1 of the format, and this program knows no later one than %2"_s.arg(version)
                    .arg(model_format_version));
    }

    /** Reads a line "WORD REST". */
    void next_line()
    {
        const QByteArray line = read_line();
        const qsizetype blank = line.indexOf(' ');
        mWord = line.left(blank);
        mRest = blank < 0 ? QByteArray() : line.sliced(blank + 1);
    }

    /** What stands behind @p word, which must be the current line's. */
    const QByteArray& need(const char* word) const
    {
        if (mWord != word)
            throw wrong(u"expected \"%1\", found %2"_s.arg(QString::fromLatin1(word),
                                                           CommandError::shown(text_of(mWord))));
        return mRest;
    }

    template <typename Number>
    Number number(const QByteArray& text, Number least,
                  Number most = std::numeric_limits<Number>::max()) const
    {
        bool ok = false;
        const qint64 value = text.toLongLong(&ok);
        if (!ok || QByteArray::number(value) != text || value < least || value > most)
            throw wrong(u"expected a whole number from %1 to %2, found %3"_s.arg(least).arg(most).arg(
                CommandError::shown(text_of(text))));
        return Number(value);
    }

    double real(const QByteArray& text) const
    {
        bool ok = false;
        const double value = text.toDouble(&ok);
        if (!ok || !std::isfinite(value))
            throw wrong(u"expected a number, found %1"_s.arg(CommandError::shown(text_of(text))));
        return value;
    }

    /** The blank-separated parts of the line, of which there must be @p count; the last one takes the rest.
     */
    QByteArrayList parts(qsizetype count) const
    {
        QByteArrayList result = mRest.split(' ');
        if (result.size() < count || result.contains(QByteArray()))
            throw wrong(u"the line \"%1\" is not whole"_s.arg(text_of(mWord)));
        const QByteArray last = result.sliced(count - 1).join(' ');
        result = result.first(count - 1);
        return result << last;
    }

    QString solid_name(const QByteArray& text) const
    {
        QString name = text_of(text);
        if (!GeometryModel::is_name(name))
            throw wrong(u"expected the name of a solid, found %1"_s.arg(CommandError::shown(name)));
        return name;
    }

    /** As many bytes as the current line has told, with the line end behind them. */
    QByteArray read_bytes(const QByteArray& count_text)
    {
        const qint64 count = number<qint64>(count_text, 0);
        if (count >= mDevice.size() - mDevice.pos())
            throw cut_off();
        QByteArray bytes = mDevice.read(count + 1);
        if (bytes.size() != count + 1)
            throw GeometryError(u"it cannot be read: "_s + mDevice.errorString());
        mChecksum.addData(bytes);
        if (!bytes.endsWith('\n'))
            throw wrong(u"the size is wrong"_s);
        bytes.chop(1);
        return bytes;
    }

    void read_solid()
    {
        const QByteArrayList words = parts(3);
        GeometryContents::Solid solid;
        solid.id = number<int>(words[0], 1);
        const int least = mContents.solids.isEmpty() ? 1 : mContents.solids.last().id + 1;
        if (solid.id < least || solid.id > mContents.last_id)
            throw wrong(u"the id %1 is not from %2 to %3"_s.arg(solid.id).arg(least).arg(mContents.last_id));
        solid.name = solid_name(words[1]);
        solid.brep = read_bytes(words[2]);
        mContents.solids << solid;
        next_line();
    }

    void read_mesh()
    {
        auto mesh = std::make_shared<Mesh>();
        mesh->size = real(mRest);
        next_line();
        mContents.mesh_age = number<qint64>(need("mesh-age"), 0, most_changes);
        next_line();
        mesh->nodes = number<qint64>(need("mesh-nodes"), 0);
        next_line();
        for (; mWord == "mesh-solid"; next_line()) {
            mesh->solids << solid_name(mRest);
            next_line();
            mesh->surfaces << read_bytes(need("mesh-surface"));
        }
        for (; mWord == "mesh-elements"; next_line()) {
            const QByteArrayList words = parts(3);
            mesh->elements.append({number<int>(words[0], 0), text_of(words[2]), number<qint64>(words[1], 0)});
        }
        mesh->msh = read_bytes(need("mesh"));
        mContents.mesh = mesh;
        next_line();
    }

    void check_end() const
    {
        if (mRest != mChecksum.result().toHex())
            throw wrong(u"it is damaged: its content does not agree with the checksum"_s);
        if (mDevice.pos() != mDevice.size())
            throw GeometryError(u"there is more behind its end, at byte %1"_s.arg(mDevice.pos()));
    }

    QIODevice& mDevice;
    GeometryContents mContents;
    QCryptographicHash mChecksum{checksum_method};
    qint64 mLineStart = 0;
    QByteArray mWord;
    QByteArray mRest;
};

} // namespace

QByteArrayList write_model(const GeometryContents& contents)
{
    QByteArrayList result{magic + QByteArray::number(model_format_version) + "\nlast-id " +
                          QByteArray::number(contents.last_id) + '\n'};
    for (const GeometryContents::Solid& solid : contents.solids)
        result << "solid " + QByteArray::number(solid.id) + ' ' + solid.name.toUtf8() + ' ' +
                      QByteArray::number(solid.brep.size()) + '\n'
               << solid.brep << "\n";
    if (contents.mesh)
        result << write_mesh(*contents.mesh, contents.mesh_age);
    QCryptographicHash checksum(checksum_method);
    for (const QByteArray& part : std::as_const(result))
        checksum.addData(part);
    return result << "end " + checksum.result().toHex() + '\n';
}

GeometryContents read_model(QIODevice& device)
{
    return Reader(device).run();
}

} // namespace fennar::geometry
