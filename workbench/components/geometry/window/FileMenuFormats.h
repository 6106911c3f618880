// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/window/SaveQuestion.h"
#include "workbench/sdk/component/ComponentContext.h"

#include <QList>
#include <QObject>
#include <QString>

namespace fennar::geometry {

/**
 * The formats in the "File" menu: an entry in the dialogs for import and export for each that there is, also
 * for those that other components bring.
 *
 * What the user chooses is sent to the console as a command. An import that was chosen here and has gone well
 * joins the recent imports.
 */
class FileMenuFormats : public QObject
{
    Q_OBJECT

public:
    /** There is a window. */
    explicit FileMenuFormats(const ComponentContext& context);

    /** To be told of the end of each import. */
    void imported(const QString& file, bool done);

private:
    void build();

    SaveQuestion mQuestion;
    /** What is in the menu now: it comes and goes with the formats. */
    ComponentContext mEntries;
    struct Chosen
    {
        QString file;
        QString format;
    };
    /** Imports that were sent to the console and have not ended yet. */
    QList<Chosen> mChosen;
};

} // namespace fennar::geometry
