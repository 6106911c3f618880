// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "handlers.h"

#include "hostdouble/HostDouble.h"

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString& text)
{
    return u'"' + text + u'"';
}

QString quoted(const QString& first, const QString& second)
{
    return quoted(first) + u", "_s + quoted(second);
}

QString truth(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

} // namespace

int Format::alive = 0;

void Documents::get_filters(QString& filters, bool saving)
{
    HostDouble::instance().record(u"Documents::get_filters(%1)"_s.arg(truth(saving)));
    filters = saving ? save_filters : open_filters;
    tell(u"get_filters"_s);
}

void Documents::get_save_location(QString& path, QString& name)
{
    HostDouble::instance().record(u"Documents::get_save_location()"_s);
    path_seen = path;
    name_seen = name;
    if (location)
        path = *location;
    if (!proposal.isEmpty())
        name = proposal;
    tell(u"get_save_location"_s);
}

bool Documents::is_modified()
{
    HostDouble::instance().record(u"Documents::is_modified()"_s);
    const bool answer = modified;
    tell(u"is_modified"_s);
    return answer;
}

void Documents::set_modified(bool now_modified)
{
    if (!stubborn)
        modified = now_modified;
    record(u"set_modified"_s, truth(now_modified));
}

void Documents::new_file()
{
    record(u"new_file"_s);
}

void Documents::open_file(const QString& file)
{
    record(u"open_file"_s, quoted(file));
}

void Documents::import_recent(const QString& command)
{
    record(u"import_recent"_s, quoted(command));
}

void Documents::save_file(const QString& file)
{
    record(u"save_file"_s, quoted(file));
}

void Documents::save_file_as(const QString& file, const QString& selectedFilter)
{
    record(u"save_file_as"_s, quoted(file, selectedFilter));
}

void Documents::set_directory()
{
    record(u"set_directory"_s);
}

void Documents::record(const QString& operation, const QString& arguments)
{
    HostDouble::instance().record(u"Documents::"_s + operation + u'(' + arguments + u')');
    // A copy, since it may delete the documents.
    if (const auto act = on_call)
        act(operation);
}

void Documents::tell(const QString& question)
{
    if (const auto act = on_question)
        act(question);
}

Format::Format(const QString& filters, const QString& component) : ImportExportHandler(component)
{
    mFilters = filters;
    ++alive;
}

Format::~Format()
{
    if (on_end)
        on_end();
    --alive;
}

void Format::execute(const QString& file, const QString& filter)
{
    HostDouble::instance().record(mComponent + u"::execute("_s + quoted(file, filter) + u')');
    if (on_execute)
        on_execute();
}
