// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "own_objects.h"

using namespace Qt::StringLiterals;

// Nothing follows a call of the monkey: the object may be gone.

void Documents::get_filters(QString& filters, bool /*saving*/)
{
    filters = u"Model Files (*.mdl);;All Files (*)"_s;
    tell_monkey("OpenSaveHandler::get_filters");
}

void Documents::get_save_location(QString& /*path*/, QString& name)
{
    name = u"proposed"_s;
    tell_monkey("OpenSaveHandler::get_save_location");
}

bool Documents::is_modified()
{
    const bool answer = modified;
    tell_monkey("OpenSaveHandler::is_modified");
    return answer;
}

void Documents::set_modified(bool now_modified)
{
    modified = now_modified;
    tell_monkey("OpenSaveHandler::set_modified");
}

void Documents::new_file()
{
    tell_monkey("OpenSaveHandler::new_file");
}

void Documents::open_file(const QString& /*file*/)
{
    tell_monkey("OpenSaveHandler::open_file");
}

void Documents::import_recent(const QString& /*command*/)
{
    tell_monkey("OpenSaveHandler::import_recent");
}

void Documents::save_file(const QString& /*file*/)
{
    modified = false;
    tell_monkey("OpenSaveHandler::save_file");
}

void Documents::save_file_as(const QString& /*file*/, const QString& /*selectedFilter*/)
{
    modified = false;
    tell_monkey("OpenSaveHandler::save_file_as");
}

void Documents::set_directory()
{
    tell_monkey("OpenSaveHandler::set_directory");
}

Format::Format(const QString& component, const QString& filters) : ImportExportHandler(component)
{
    mFilters = filters;
}

Format::~Format()
{
    tell_monkey("ImportExportHandler's end", this);
}

void Format::execute(const QString& /*file*/, const QString& /*filter*/)
{
    tell_monkey("ImportExportHandler::execute");
}
