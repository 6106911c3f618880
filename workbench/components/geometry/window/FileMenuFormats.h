// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/window/SaveQuestion.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class ImportExportHandler;
class OstrelFileMenu;

/**
 * The formats in the "File" menu: an entry in the dialogs for import and export for each that there is, also
 * for those that other components bring.
 *
 * What the user chooses is sent to the console as a command. An import that was chosen here and has gone well
 * joins the recent imports. Everything is taken out of the menu again when this object is deleted.
 */
class FileMenuFormats : public QObject
{
    Q_OBJECT

public:
    /** @param menu  must outlive this object. */
    explicit FileMenuFormats(OstrelFileMenu* menu);
    ~FileMenuFormats() override;

    /** To be told of the end of each import. */
    void imported(const QString& file, bool done);

private:
    class Importer;
    class Exporter;

    void build();
    void clear();

    OstrelFileMenu* mMenu;
    SaveQuestion mQuestion;
    /** The file menu has them in its lists, and would delete them only if it went first. */
    std::vector<std::unique_ptr<ImportExportHandler>> mHandlers;
    struct Chosen
    {
        QString file;
        QString format;
    };
    /** Imports that were sent to the console and have not ended yet. */
    QList<Chosen> mChosen;
};
