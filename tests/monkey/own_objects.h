// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "Busy.h"
#include "files/ImportExportHandler.h"
#include "files/OpenSaveHandler.h"

#include <QEvent>

/** Tells the running monkey that something of a component has been called. @p busy is what Qt goes on with
 * afterwards, if there is such an object. */
void tell_monkey(const char* by, const QObject* busy = nullptr);

/** A component's widget of the kind @p Base: it knows when one of its own events is being handled, and tells
 * of its end. */
template <class Base>
class Own : public Base
{
public:
    using Base::Base;
    ~Own() override { tell_monkey("a widget's end", this); }

protected:
    bool event(QEvent* e) override
    {
        // After what the user does Qt looks whether the widget is still there.
        switch (e->type()) {
        case QEvent::ContextMenu:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return Base::event(e);
        default:
            const Busy busy(this);
            return Base::event(e);
        }
    }
};

/** A component's documents. */
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

    bool modified = false;
};

/** A component's file format. */
class Format : public QObject, public ImportExportHandler
{
    Q_OBJECT

public:
    Format(const QString& component, const QString& filters);
    ~Format() override;

    void execute(const QString& file, const QString& filter) override;
};
