// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/KeptDocument.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace fennar::recovery {

namespace {

/** The key by which the first line is known, with the version of the format. */
const auto format_key = u"fennar kept journal"_s;
constexpr int format_version = 1;
const auto file_key = u"file"_s;
const auto changed_key = u"changed"_s;
const auto encoding_key = u"encoding"_s;
const auto kind_key = u"kind"_s;
const auto utf16 = u"UTF-16LE"_s;

/** A text of the first line, without the marks of a byte order that it begins with: the reader of JSON leaves
 * one out each time. */
QString text_of(const QJsonObject& head, const QString& key)
{
    QString text = head.value(key).toString();
    while (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    return text;
}

} // namespace

QByteArrayList KeptDocument::encode() const
{
    QJsonObject head{{format_key, format_version},
                     {file_key, file},
                     {changed_key, changed.toUTC().toString(Qt::ISODateWithMs)}};
    const bool plain = text.isValidUtf16();
    if (kind.isEmpty())
        head.insert(encoding_key, plain ? u"UTF-8"_s : utf16);
    else
        head.insert(kind_key, kind);
    const QByteArray line = QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n';
    if (!kind.isEmpty())
        return QByteArrayList{line} + data;
    QStringEncoder encoder(plain ? QStringConverter::Utf8 : QStringConverter::Utf16LE);
    return {line, QByteArray(encoder(text))};
}

KeptDocument KeptDocument::decode(const QByteArray& bytes)
{
    const qsizetype line_end = bytes.indexOf('\n');
    const QJsonObject head = QJsonDocument::fromJson(bytes.left(std::max<qsizetype>(line_end, 0))).object();
    KeptDocument kept;
    QByteArrayView content = bytes;
    auto encoding = QStringConverter::Utf8;
    if (head.value(format_key).toInt() == format_version) {
        kept.file = text_of(head, file_key);
        kept.changed = QDateTime::fromString(head.value(changed_key).toString(), Qt::ISODateWithMs);
        if (head.value(encoding_key).toString() == utf16)
            encoding = QStringConverter::Utf16LE;
        kept.kind = text_of(head, kind_key);
        content = content.sliced(line_end + 1);
    }
    if (!kept.kind.isEmpty()) {
        kept.data = {content.toByteArray()};
        return kept;
    }
    // A mark of the byte order at the start would be part of the text, not of the encoding; and nothing comes
    // that could complete half a letter at the end.
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(encoding, Flag::ConvertInitialBom | Flag::Stateless);
    kept.text = decoder(content);
    return kept;
}

QString KeptDocument::title(const QDateTime& now) const
{
    const QString name = !file.isEmpty()  ? QFileInfo(file).fileName()
                         : kind.isEmpty() ? tr("Untitled")
                                          : tr("Untitled model");
    if (!changed.isValid())
        return name;
    const QDateTime local = changed.toLocalTime();
    const bool today = local.date() == now.toLocalTime().date();
    return tr("%1 (changed %2)").arg(name, local.toString(today ? u"HH:mm"_s : u"yyyy-MM-dd HH:mm"_s));
}

} // namespace fennar::recovery
