// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "frame/Ostrel.h"
#include "options/OptionsPanel.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/windows/undo_parts.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

class Step : public UndoSteps::Change
{
public:
    explicit Step(int& number) : mNumber(number) {}
    void undo() override { --mNumber; }
    void redo() override { ++mNumber; }
    qint64 memory(bool) const override { return qint64(3) << 20; }

private:
    int& mNumber;
};

} // namespace

/** Undo and its options in the window, with a command "count" of a component that has nothing else. */
class TstUndoParts : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void set_up() override
    {
        page()->clearToPrompt();
        mNumber = 0;
        CommandRegistry& registry = Fennar::instance().registry();
        registry.steps().add_source(u"test"_s, [this]() -> std::unique_ptr<UndoSteps::Change> {
            if (!std::exchange(mCounted, false))
                return nullptr;
            return std::make_unique<Step>(mNumber);
        });
        registry.add({.name = u"count"_s,
                      .owner = u"test"_s,
                      .perform =
                          [this](CommandCall&, const CommandArguments&) {
                              ++mNumber;
                              mCounted = true;
                          },
                      .changes_model = true});
    }
    void tear_down() override { Fennar::instance().registry().remove_owner(u"test"_s); }

private slots:
    void edit_menu_undoes_and_redoes()
    {
        QStringList titles;
        const QList<QAction*> menus = window().menuBar()->actions();
        for (const QAction* menu : menus)
            titles << menu->text();
        QCOMPARE(titles.indexOf(u"&Edit"_s), 1);
        const QList<QAction*> entries = menus[1]->menu()->actions();
        QCOMPARE(entries.size(), 2);
        QAction* const undo = entries[0];
        QAction* const redo = entries[1];
        QCOMPARE(undo->objectName(), u"fennar_undo"_s);
        QCOMPARE(redo->objectName(), u"fennar_redo"_s);
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
        QCOMPARE(fennar::disabled_reason(undo), u"There is nothing to undo."_s);
        QCOMPARE(fennar::disabled_reason(redo), u"There is nothing to redo."_s);
        enter(u"count"_s);
        enter(u"count"_s);
        QVERIFY(undo->isEnabled() && !redo->isEnabled());
        page()->clearToPrompt();
        undo->trigger();
        flush();
        QVERIFY2(page()->toPlainText().startsWith(u"Fennar>undo\nUndone: count\n"_s),
                 qPrintable(page()->toPlainText()));
        QCOMPARE(mNumber, 1);
        QVERIFY(undo->isEnabled() && redo->isEnabled());
        redo->trigger();
        flush();
        QCOMPARE(mNumber, 2);
        QVERIFY(!redo->isEnabled());
        Fennar::instance().registry().remove_owner(u"test"_s);
        QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    }

    void steps_and_lines_typed_are_listed()
    {
        enter(u"count"_s);
        const QString answer = enter(u"history steps"_s);
        QVERIFY2(answer.contains(u"1                   count\n"_s), qPrintable(answer));
        QVERIFY(enter(u"history 1"_s).contains(u"history 1\n"_s));
    }

    void options_show_and_set_the_memory_for_undo()
    {
        UndoSteps& steps = Fennar::instance().registry().steps();
        OptionsPanel* const options = window().options();
        auto* const form = options->findChild<QWidget*>(u"UndoOptions"_s);
        QVERIFY(form);
        enter(u"count"_s);
        enter(u"count"_s);
        options->refresh_settings();
        auto* const memory = form->findChild<QSpinBox*>(u"memory"_s);
        QCOMPARE(memory->value(), 256);
        QCOMPARE(form->findChild<QLabel*>(u"used"_s)->text(), u"6.0 MiB, steps: 2"_s);
        memory->setValue(0);
        options->findChild<QPushButton*>(u"mSaveButton"_s)->click();
        QVERIFY(enter(u"undo"_s).contains(u"there is nothing to undo"_s));
        steps.set_limit(UndoSteps::usual_limit);
    }

    void memory_for_undo_is_kept_for_the_next_start()
    {
        const auto limit = [](const QVariant& stored) {
            QSettings().setValue(u"/fennar/undo/memory"_s, stored);
            UndoSteps steps;
            read_undo_limit(steps);
            return steps.limit();
        };
        QCOMPARE(limit(5), qint64(5) << 20);
        QCOMPARE(limit(0), 0);
        QCOMPARE(limit(u"much"_s), UndoSteps::usual_limit);
        QCOMPARE(limit(-1), UndoSteps::usual_limit);
        QCOMPARE(limit(70'000), UndoSteps::usual_limit);
    }

private:
    int mNumber = 0;
    bool mCounted = false;
};

OSTREL_TEST(TstUndoParts)
#include "tst_undo_parts.moc"
