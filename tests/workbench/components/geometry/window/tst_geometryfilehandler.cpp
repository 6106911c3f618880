// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/window/GeometryFileHandler.h"

#include <QFileDialog>
#include <QTest>

using namespace fennar::geometry;

namespace {

class SaveDialog : public QFileDialog
{
public:
    /** How many listen to what is chosen, once the dialog has come up. */
    int listeners()
    {
        setAcceptMode(AcceptSave);
        show();
        hide();
        return receivers(SIGNAL(fileSelected(QString)));
    }
};

} // namespace

class TstGeometryFileHandler : public TestCase
{
    Q_OBJECT

private slots:
    void without_a_window_dialogs_are_not_followed();
};

void TstGeometryFileHandler::without_a_window_dialogs_are_not_followed()
{
    const int before = SaveDialog().listeners();
    {
        const SaveQuestion question;
        QCOMPARE(SaveDialog().listeners(), before + 1);
    }
    GeometryModel model;
    GeometryDocument document(model);
    const GeometryFileHandler handler(nullptr, document);
    QCOMPARE(SaveDialog().listeners(), before);
}

OSTREL_TEST(TstGeometryFileHandler)
#include "tst_geometryfilehandler.moc"
