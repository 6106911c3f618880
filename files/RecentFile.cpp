// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/RecentFile.h"

#include <QFile>

using namespace Qt::StringLiterals;

RecentFile::RecentFile(const QString& text) : mText(text) {}

RecentFile::~RecentFile() = default;

bool RecentFile::has_action(QAction* action)
{
    return mAction == action;
}

bool RecentFile::matches(const QString& other)
{
    return mText == other;
}

bool RecentFile::exists()
{
    return QFile::exists(mText);
}

void RecentFile::display_text(QString& text)
{
    text = short_form(mText);
}

QString short_form(const QString& text)
{
    constexpr qsizetype longest_unchanged = 25;
    if (text.size() <= longest_unchanged)
        return text;
    const QChar separator = text.contains(u'/') ? u'/' : u'\\';
    const QStringList parts = text.split(separator);
    QString end;
    for (qsizetype i = parts.size() - 1; i > 0 && end.size() <= longest_unchanged; --i)
        end.prepend(separator + parts[i]);
    if (end.size() > longest_unchanged)
        end.prepend(separator + ".."_L1);
    return parts.constFirst() + end;
}
