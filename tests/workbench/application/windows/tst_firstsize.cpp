// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/component_manager/ComponentManager.h"

#include <QSettings>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace fennar;
using namespace Qt::StringLiterals;

/** How large the main window is when it is shown for the first time. */
class TstFirstSize : public TestCase
{
    Q_OBJECT

private slots:
    void first_window_shows_all_buttons_of_all_toolbars();
};

void TstFirstSize::first_window_shows_all_buttons_of_all_toolbars()
{
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    QSettings().setValue(u"graphics/opengl"_s, false); // its driver leaks
    Workbench workbench;
    QVERIFY(workbench.load());
    workbench.components().load_all();
    Ostrel* window = Ostrel::instance();
    QVERIFY(show_active(window));
    const auto bars = window->findChildren<QToolBar*>(Qt::FindDirectChildrenOnly);
    QVERIFY2(bars.size() >= 4, qPrintable(QString::number(bars.size())));
    for (const QToolBar* bar : bars) {
        const auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
        QVERIFY2(bar->isVisible() && more && !more->isVisible(), qPrintable(bar->windowTitle()));
    }
    // Settings are for what the user has chosen.
    QVERIFY(!QSettings().contains(u"geometry"_s));
    QVERIFY(!QSettings().contains(u"ostrelgui/ostrel/width"_s));
    workbench.unload();
}

OSTREL_TEST(TstFirstSize)
#include "tst_firstsize.moc"
