// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/RecentImport.h"

#include <QFile>

namespace {

QString quoted_part(const QString& command)
{
    const QChar quote = command.contains(u'"') ? u'"' : u'\'';
    return command.section(quote, 1, 1);
}

} // namespace

bool RecentImport::matches(const QString& other)
{
    if (quoted_part(mText) != quoted_part(other))
        return false;
    mText = other;
    return true;
}

bool RecentImport::exists()
{
    return QFile::exists(quoted_part(mText));
}

void RecentImport::display_text(QString& text)
{
    text = short_form(quoted_part(mText));
}
