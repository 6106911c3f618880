// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/file_names.h"

using namespace Qt::StringLiterals;

namespace {

// What stands in the parentheses of a filter, or of a list of them from the first "(" on.
QString without_parentheses(const QString& filter)
{
    QString inside = filter.mid(filter.indexOf(u'(') + 1);
    if (inside.endsWith(u')'))
        inside.chop(1);
    return inside;
}

// All of the text if the mark does not occur.
QString up_to(const QString& text, const QString& mark)
{
    return text.left(text.indexOf(mark));
}

QString extension_of_pattern(const QString& pattern)
{
    const QString extension = pattern.mid(1);
    const qsizetype wildcard = extension.indexOf(u'*');
    return wildcard > 0 ? extension.left(wildcard) : extension;
}

} // namespace

QString directory_of(const QString& file)
{
    qsizetype separator = file.lastIndexOf(u'/');
    if (separator < 0)
        separator = file.lastIndexOf(u'\\');
    return separator < 0 ? file : file.left(separator + 1);
}

bool lacks_extension(const QString& file)
{
    return !file.section(u'/', -1).contains(u'.');
}

QString extension_of_filters(const QString& filters)
{
    const QString inside = without_parentheses(filters);
    return extension_of_pattern(up_to(inside, inside.contains(u';') ? u");"_s : u" "_s));
}

QString extension_of_filter(const QString& filter)
{
    const QString inside = without_parentheses(filter);
    return extension_of_pattern(up_to(inside, inside.contains(u';') ? u";"_s : u" "_s));
}
