// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/ImportExportHandler.h"
#include "files/OpenSaveHandler.h"

#include <QStringList>

#include <functional>
#include <optional>

/** A component's documents: every call is recorded in HostDouble::calls, and every answer can be set. */
class Documents : public OpenSaveHandler
{
public:
    void get_filters(QString& filters, bool saving) override;
    void get_save_location(QString& path, QString& name) override;
    bool is_modified() override;
    void set_modified(bool modified) override;
    void new_file() override;
    void open_file(const QString& file) override;
    void import_recent(const QString& command) override;
    void save_file(const QString& file) override;
    void save_file_as(const QString& file, const QString& selectedFilter) override;
    void set_directory() override;

    // Answers.
    QString open_filters;
    QString save_filters;
    std::optional<QString> location;
    QString proposal;
    bool modified = false;
    /** Whether they stay modified whatever the file menu says, as they do when saving fails. */
    bool stubborn = false;

    /** What get_save_location() got. */
    QString path_seen;
    QString name_seen;
    /** Called at the end of each operation but the first three, with its name. */
    std::function<void(const QString& operation)> on_call;
    /** Called at the end of the first three; it may delete the documents. */
    std::function<void(const QString& operation)> on_question;

private:
    void record(const QString& operation, const QString& arguments = {});
    void tell(const QString& question);
};

/** A format: every call is recorded in HostDouble::calls under the handler's component. */
class Format : public ImportExportHandler
{
public:
    explicit Format(const QString& filters, const QString& component = QStringLiteral("format"));
    ~Format() override;

    void execute(const QString& file, const QString& filter) override;

    /** Called at the end of execute(). */
    std::function<void()> on_execute;
    /** Called when it is deleted. */
    std::function<void()> on_end;
    /** How many of them live. */
    static int alive;
};
