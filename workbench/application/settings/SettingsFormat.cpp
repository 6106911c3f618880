// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/settings/SettingsFormat.h"

#include <QDataStream>
#include <QFileDevice>
#include <QFileInfo>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringList>

#include <map>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

bool is_hexadecimal_digit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool stands_for_itself_in_a_key(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
           c == u'-' || c == u'.';
}

QByteArray escaped_key(const QString& key)
{
    QByteArray result;
    for (const QChar c : key) {
        if (c == u'/')
            result += '\\';
        else if (stands_for_itself_in_a_key(c))
            result += char(c.unicode());
        else if (c.unicode() <= 0xff)
            result += '%' + QByteArray::number(c.unicode(), 16).rightJustified(2, '0');
        else
            result += "%U" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
    }
    return result;
}

/** In quotes where a reader would stop or leave something out otherwise. */
QByteArray escaped_text(const QString& text)
{
    QString result;
    bool quote = text.startsWith(u' ') || text.endsWith(u' ');
    bool behind_number = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool pair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) {
            result += c;
            result += text[++i];
            behind_number = false;
        } else if (c < u' ' || c == u'\x7f' || c.isSurrogate() ||
                   (behind_number && is_hexadecimal_digit(c))) {
            result += u"\\x"_s + QString::number(c.unicode(), 16);
            behind_number = true;
        } else {
            if (c == u'"' || c == u'\\')
                result += u'\\';
            quote = quote || c == u';' || c == u',' || c == u'=' || c == u'"';
            result += c;
            behind_number = false;
        }
    }
    return (quote ? u'"' + result + u'"' : result).toUtf8();
}

QString binary(const char* kind, const QByteArray& bytes)
{
    return u'@' + QString::fromLatin1(kind) + u'(' + QString::fromLatin1(bytes) + u')';
}

QString numbers(const char* kind, const QStringList& values)
{
    return binary(kind, values.join(u' ').toLatin1());
}

/** What stands for a value that is no list. */
QString text_of(const QVariant& value)
{
    const auto number = [](int n) { return QString::number(n); };
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return u"@Invalid()"_s;
    case QMetaType::QByteArray:
        return binary("ByteArray", value.toByteArray());
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return value.toString();
    case QMetaType::QString: {
        const QString text = value.toString();
        if (text.contains(QChar::Null))
            return u"@String("_s + text + u')';
        return text.startsWith(u'@') ? u'@' + text : text;
    }
    case QMetaType::QRect: {
        const QRect r = value.toRect();
        return numbers("Rect", {number(r.x()), number(r.y()), number(r.width()), number(r.height())});
    }
    case QMetaType::QSize:
        return numbers("Size", {number(value.toSize().width()), number(value.toSize().height())});
    case QMetaType::QPoint:
        return numbers("Point", {number(value.toPoint().x()), number(value.toPoint().y())});
    default: {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_4_0); // what the reader expects
        stream << value;
        return binary("Variant", bytes);
    }
    }
}

QByteArray escaped_value(const QVariant& value)
{
    const int type = value.typeId();
    // A list of one would come back as the text that it holds, but for a list of texts that is no loss.
    if (type != QMetaType::QStringList && (type != QMetaType::QVariantList || value.toList().size() == 1))
        return escaped_text(text_of(value));
    const QVariantList list = value.toList();
    if (list.isEmpty())
        return "@Invalid()";
    QByteArrayList parts;
    for (const QVariant& one : list) {
        const QByteArray text = escaped_text(text_of(one));
        parts << (text.isEmpty() ? QByteArray("\"\"") : text);
    }
    return parts.join(", ");
}

/** Another name of the same file. */
QString alias(const QString& path)
{
    return u"/proc/self/root"_s + path;
}

bool read(QIODevice& device, QSettings::SettingsMap& settings)
{
    const auto* file = qobject_cast<QFileDevice*>(&device);
    if (!file)
        return false;
    // Qt's own reader, by another name: under its own one the file is locked while it is read.
    const QString name = alias(QFileInfo(file->fileName()).absoluteFilePath());
    if (!QFileInfo::exists(name))
        return false;
    const QSettings reader(name, QSettings::IniFormat);
    const QStringList keys = reader.allKeys();
    for (const QString& key : keys)
        settings.insert(key, reader.value(key));
    return true;
}

bool write(QIODevice& device, const QSettings::SettingsMap& settings)
{
    auto* file = qobject_cast<QFileDevice*>(&device);
    // What could not be read must not be replaced.
    if (!file || !QFileInfo::exists(alias(QFileInfo(file->fileName()).absolutePath())))
        return false;
    const QByteArray text = ini_text(settings);
    return file->write(text) == text.size() && file->flush() && ::fsync(file->handle()) == 0;
}

} // namespace

QSettings::Format settings_format()
{
    static const QSettings::Format format = QSettings::registerFormat(u"conf"_s, &read, &write);
    return format;
}

QByteArray ini_text(const QSettings::SettingsMap& settings)
{
    // By group: "" holds the keys that are in none.
    std::map<QString, QByteArrayList> groups;
    for (auto entry = settings.begin(); entry != settings.end(); ++entry) {
        const qsizetype slash = entry.key().indexOf(u'/');
        const QString group = slash < 0 ? QString() : entry.key().first(slash);
        groups[group] << escaped_key(entry.key().sliced(slash + 1)) + '=' + escaped_value(entry.value()) +
                             '\n';
    }
    QByteArrayList parts;
    for (const auto& [group, lines] : groups) {
        const QByteArray name = group.isEmpty()                                         ? "General"
                                : group.compare(u"general"_s, Qt::CaseInsensitive) == 0 ? "%General"
                                                                                        : escaped_key(group);
        parts << '[' + name + "]\n" + lines.join();
    }
    return parts.join('\n');
}

} // namespace fennar
