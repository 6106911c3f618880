// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/OpenSaveHandler.h"

/** Opens and saves nothing, and has nothing to save. Derived classes override what they need. */
class IdleDocuments : public OpenSaveHandler
{
public:
    void get_filters(QString&, bool) override {}
    void get_save_location(QString&, QString&) override {}
    bool is_modified() override { return false; }
    void set_modified(bool) override {}
    void new_file() override {}
    void open_file(const QString&) override {}
    void import_recent(const QString&) override {}
    void save_file(const QString&) override {}
    void save_file_as(const QString&, const QString&) override {}
    void set_directory() override {}
};
