// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArrayView>
#include <QString>

/**
 * The input as a text that may hold whatever a QString can: what is no UTF-8 becomes half of a surrogate
 * pair, which can be pasted, and is in no file.
 */
inline QString fuzz_text(const std::uint8_t* data, std::size_t size)
{
    QString text = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));
    return text.replace(QChar::ReplacementCharacter, QChar(0xd83d)).replace(QChar(0xfffe), QChar(0xde00));
}
