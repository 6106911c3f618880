// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/WorkbenchTest.h"

#include <memory>

namespace fennar {
class CommandSearch;
}

class QAction;
class QLineEdit;
class QTreeView;

/** A test of the command search in the whole application, without components. Each function finds an entry
 * "Zebra" in the menu "Tools". */
class SearchTest : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(fennar::Workbench& workbench) override;
    void set_up() override;
    /** Closes what is open. */
    void tear_down() override;

    /** The entry; it must not have been deleted. */
    QAction& zebra() { return *mZebra; }
    void delete_zebra();
    /** How often it has run. */
    int zebra_runs() const { return mRuns; }

    /** The search that is open; null if none is. */
    static fennar::CommandSearch* search();
    /** Its parts; it must be open. */
    static QLineEdit* field();
    static QTreeView* list();
    /** Opens it by its key and types. */
    static void look_for(const QString& words);
    /** Opens it, types, and presses Return. What is chosen has run when this returns. */
    static void choose(const QString& words);
    /** The rows as "text|place|key"; those that cannot be run with "-" in front. */
    static QStringList rows();
    /** The row in which the choice stands, from 0; -1 for none. */
    static int current_row();
    /** What the line below the list says. */
    static QString hint();

private:
    std::unique_ptr<QAction> mZebra;
    int mRuns = 0;
};
