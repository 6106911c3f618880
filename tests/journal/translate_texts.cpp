// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Translates the texts on its standard input, which NULs separate, and writes them with NULs between them.

#include "journal/translate.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdio>

int main()
{
    QFile in;
    QFile out;
    if (!in.open(stdin, QIODevice::ReadOnly) || !out.open(stdout, QIODevice::WriteOnly))
        return 1;
    QByteArrayList texts = in.readAll().split('\0');
    for (QByteArray& bytes : texts) {
        QString text = QString::fromUtf8(bytes);
        pythonize_text(text);
        bytes = text.toUtf8();
    }
    return out.write(texts.join('\0')) < 0;
}
