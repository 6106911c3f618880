// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/Keeper.h"

#include <QHash>

#include <optional>

namespace fennar::recovery {

/** Keeps the unsaved work of components; a copy goes as soon as the work is saved or given up. */
class WorkKeeper : public Keeper
{
    Q_OBJECT

public:
    /** As a Keeper. */
    WorkKeeper(const QString& root, std::chrono::milliseconds interval, const Report& report);

public slots:
    void keep() override;

private:
    struct Kept
    {
        /** Of its copy, in the folder. */
        int number = 0;
        /** Of which state there is a copy, or will be; nothing if there is none. */
        std::optional<qint64> state;
        bool writing = false;
    };

    void work_written(const QString& kind, const QString& error, bool lost);
    void drop(const QString& kind);
    void fail(Kept& kept, const QString& error);

    /** By kind. */
    QHash<QString, Kept> mKept;
};

} // namespace fennar::recovery
