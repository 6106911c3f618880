// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/ImportExportHandler.h"
#include "support/IdleDocuments.h"
#include "workbench/sdk/component/ComponentContext.h"

#include <QStringList>

#include <exception>

/** The component's name in these tests. */
inline const QString owner = QStringLiteral("sample");

/** A command that does nothing. */
fennar::Command command(const QString& name);
/** A format whose ending is its name. */
fennar::FileFormat format(const QString& name);
/** Work of which nothing is unsaved. */
fennar::UnsavedWork work(const QString& kind);

/** Opens and saves nothing. */
class Files : public IdleDocuments
{};

/** Imports and exports nothing, and counts how many of its kind are alive. */
class Handler : public ImportExportHandler
{
public:
    explicit Handler(const QString& filters, int* alive = nullptr) : ImportExportHandler({}), mAlive(alive)
    {
        mFilters = filters;
        if (mAlive)
            ++*mAlive;
    }
    ~Handler() override
    {
        if (mAlive)
            --*mAlive;
    }
    Q_DISABLE_COPY_MOVE(Handler)
    void execute(const QString&, const QString&) override {}

private:
    int* mAlive;
};

/** The program, and how many trackers the host has. */
QStringList describe();

/** One of each kind of addition. */
struct Addition
{
    const char* name;
    /** Adds something, and returns what the component may delete itself; null if there is nothing. */
    QObject* (*add)(fennar::ComponentContext& context);
    bool needs_window = true;
    bool gives_object = true;
};

/** All of them. */
const std::vector<Addition>& additions();

/** What an exception from @p act says; empty without one. */
template <typename Act>
QString refusal(Act act)
{
    try {
        act();
        return {};
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}
