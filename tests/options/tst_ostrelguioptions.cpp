// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "options/GeneralOptions.h"
#include "options/LayoutOptions.h"
#include "options/LayoutOptionsModel.h"
#include "options/OptionsPanel.h"
#include "options/OstrelGUIOptions.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/statics.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QTest>
#include <QTreeWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QStringList rows(const OptionsPanel* panel)
{
    const auto* tree = panel->findChild<QTreeWidget*>(u"mOptionList"_s);
    QStringList rows;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        rows << tree->topLevelItem(i)->text(0);
    return rows;
}

QStackedWidget* stack(const OptionsPanel* panel)
{
    return panel->findChild<QStackedWidget*>(u"mOptionStack"_s);
}

/** The texts of a page that are translated: of its labels, buttons, boxes, and their help. */
QStringList page_texts(const QWidget& page)
{
    QStringList texts{page.windowTitle()};
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            texts << label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            texts << button->text();
        if (const auto* box = qobject_cast<const QGroupBox*>(widget))
            texts << box->title();
        texts << widget->toolTip() << widget->whatsThis();
    }
    texts.removeAll(QString());
    return texts;
}

bool all_marked(const QStringList& texts)
{
    return std::all_of(texts.begin(), texts.end(),
                       [](const QString& text) { return text.startsWith(u'<') && text.endsWith(u'>'); });
}

} // namespace

/** The pages of the shell in the dialog of the window, and how a user meets them. */
class TstOstrelGUIOptions : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void pages_stand_in_order();
    void dialog_opens_on_general();
    void class_has_no_signals_and_slots();
    void nothing_is_added_without_a_window();
    void pages_leave_with_the_object();
    void pages_go_with_the_panel();
    void second_window_leaves_the_pages_of_the_first();
    void page_deleted_by_others_leaves_no_trace();
    void save_and_refresh_reach_both_pages_layout_first();
    void pages_are_found_under_their_translated_names();
    void texts_of_the_forms_are_translated_in_their_contexts();

    void dialog_shows_a_flag_that_a_question_has_changed();
    void focus_option_survives_closing_the_dialog();
    void edited_paths_survive_closing_the_dialog();
    void journal_prompt_acts_when_the_dialog_is_saved();
    void closing_the_dialog_saves_nothing();

private:
    OptionsPanel* panel() const { return mWindow->options(); }
    template <class Widget>
    Widget* control(const QString& name) const
    {
        return panel()->findChild<Widget*>(name);
    }
    /** Opens the dialog as the menu does, acts, and presses the button of that name. */
    bool in_dialog(const std::function<void()>& act, const QString& button);

    std::unique_ptr<Ostrel> mWindow;
};

void TstOstrelGUIOptions::set_up()
{
    reset_statics();
    JournalEditor::set_save_prompt(true);
    HostDouble::instance().reset();
    mWindow = std::make_unique<Ostrel>();
}

void TstOstrelGUIOptions::tear_down()
{
    mWindow.reset();
    reset_statics();
    JournalEditor::set_save_prompt(true);
}

bool TstOstrelGUIOptions::in_dialog(const std::function<void()>& act, const QString& button)
{
    DialogDriver driver;
    driver.expect(u"QtOptionsPanel"_s, [&](QWidget* dialog) {
        act();
        press(button)(dialog);
    });
    panel()->show_panel(u"General"_s);
    return driver.finish();
}

void TstOstrelGUIOptions::pages_stand_in_order()
{
    QCOMPARE(rows(panel()), (QStringList{u"General"_s, u"Layout"_s}));
    // Layout is added first; the tree sorts.
    QCOMPARE(stack(panel())->count(), 3);
    QVERIFY(qobject_cast<LayoutOptions*>(stack(panel())->widget(1)));
    QVERIFY(qobject_cast<GeneralOptions*>(stack(panel())->widget(2)));
}

void TstOstrelGUIOptions::dialog_opens_on_general()
{
    panel()->select_first();
    QVERIFY(qobject_cast<GeneralOptions*>(stack(panel())->currentWidget()));
}

void TstOstrelGUIOptions::class_has_no_signals_and_slots()
{
    const QMetaObject& type = OstrelGUIOptions::staticMetaObject;
    QCOMPARE(type.methodCount(), type.methodOffset());
}

void TstOstrelGUIOptions::nothing_is_added_without_a_window()
{
    mWindow.reset();
    QObject parent;
    const auto* options = new OstrelGUIOptions(&parent);
    QCOMPARE(options->parent(), &parent);
    QCOMPARE(options->children(), QObjectList());
}

void TstOstrelGUIOptions::pages_leave_with_the_object()
{
    const QPointer<GeneralOptions> general(panel()->findChild<GeneralOptions*>());
    const QPointer<LayoutOptions> layout(panel()->findChild<LayoutOptions*>());
    panel()->select_first();
    delete mWindow->findChild<OstrelGUIOptions*>();
    QVERIFY(!general);
    QVERIFY(!layout);
    QCOMPARE(rows(panel()), QStringList());
    QCOMPARE(stack(panel())->count(), 1);
    // They can be made anew.
    const OstrelGUIOptions again(mWindow.get());
    QCOMPARE(rows(panel()), (QStringList{u"General"_s, u"Layout"_s}));
}

void TstOstrelGUIOptions::pages_go_with_the_panel()
{
    const QPointer<GeneralOptions> general(panel()->findChild<GeneralOptions*>());
    const QPointer<LayoutOptions> layout(panel()->findChild<LayoutOptions*>());
    QVERIFY(general && layout);
    mWindow.reset();
    QVERIFY(!general);
    QVERIFY(!layout);
}

void TstOstrelGUIOptions::second_window_leaves_the_pages_of_the_first()
{
    auto second = std::make_unique<Ostrel>();
    second.reset();
    QCOMPARE(rows(panel()), (QStringList{u"General"_s, u"Layout"_s}));
    QCOMPARE(stack(panel())->count(), 3);
}

void TstOstrelGUIOptions::page_deleted_by_others_leaves_no_trace()
{
    delete panel()->findChild<GeneralOptions*>();
    delete mWindow->findChild<OstrelGUIOptions*>();
    QCOMPARE(rows(panel()), QStringList());
    QCOMPARE(stack(panel())->count(), 1);
}

void TstOstrelGUIOptions::save_and_refresh_reach_both_pages_layout_first()
{
    auto* position = control<QAbstractButton>(u"rbTabTop"_s);
    auto* splash = control<QCheckBox>(u"mUsingSplash"_s);
    QSettings().setValue(u"/fennargui/tabposition"_s, u"north"_s);
    QSettings().setValue(u"/ostrelgui/ostrel/splash"_s, false);
    // The box of the other page has not followed yet when this one's has.
    bool splash_before = false;
    connect(position, &QAbstractButton::toggled, this, [&] { splash_before = splash->isChecked(); });
    panel()->refresh_settings();
    QVERIFY(position->isChecked());
    QVERIFY(!splash->isChecked());
    QVERIFY(splash_before);
    QSettings().clear();
    emit panel()->saveSettings();
    QCOMPARE(QSettings().value(u"/fennargui/tabposition"_s), QVariant(u"north"_s));
    QCOMPARE(QSettings().value(u"/ostrelgui/ostrel/splash"_s), QVariant(false));
}

void TstOstrelGUIOptions::pages_are_found_under_their_translated_names()
{
    delete mWindow->findChild<OstrelGUIOptions*>();
    const MarkingTranslator marker("OstrelGUIOptions");
    {
        const OstrelGUIOptions options(mWindow.get());
        QCOMPARE(rows(panel()), (QStringList{u"<General>"_s, u"<Layout>"_s}));
    }
    QCOMPARE(rows(panel()), QStringList());
}

void TstOstrelGUIOptions::texts_of_the_forms_are_translated_in_their_contexts()
{
    {
        const MarkingTranslator marker("QtGeneralOptions");
        const GeneralOptions page(nullptr);
        QVERIFY2(all_marked(page_texts(page)), qPrintable(page_texts(page).join(u'|')));
    }
    {
        const MarkingTranslator marker("QtLayoutOptions");
        const LayoutOptions page(nullptr);
        QVERIFY2(all_marked(page_texts(page)), qPrintable(page_texts(page).join(u'|')));
        // This one is not translated.
        QCOMPARE(LayoutOptionsModel().headerData(0, Qt::Horizontal).toString(), u"Name"_s);
    }
    const MarkingTranslator marker("QtOptionsPanel");
    const OptionsPanel dialog(nullptr);
    QCOMPARE(page_texts(dialog), (QStringList{u"<Options>"_s, u"<&Save>"_s, u"<&Close>"_s}));
    QCOMPARE(dialog.findChild<QTreeWidget*>(u"mOptionList"_s)->headerItem()->text(0), u"<Options>"_s);
    // So are the shortcuts.
    for (const auto& name : {u"mSaveButton"_s, u"mCancelButton"_s})
        QVERIFY(dialog.findChild<QPushButton*>(name)->shortcut() != QKeySequence(u"Alt+S"_s) &&
                dialog.findChild<QPushButton*>(name)->shortcut() != QKeySequence(u"Alt+C"_s));
}

void TstOstrelGUIOptions::dialog_shows_a_flag_that_a_question_has_changed()
{
    auto* box = control<QCheckBox>(u"mUsingJournalPrompt"_s);
    bool shown = false;
    QVERIFY(in_dialog([&] { shown = box->isChecked(); }, u"mCancelButton"_s));
    QVERIFY(shown);
    JournalEditor::set_save_prompt(false);
    QVERIFY(in_dialog([&] { shown = box->isChecked(); }, u"mCancelButton"_s));
    QVERIFY(!shown);
}

void TstOstrelGUIOptions::focus_option_survives_closing_the_dialog()
{
    auto* box = control<QCheckBox>(u"mFocusFollowsCursor"_s);
    QVERIFY(in_dialog([&] { box->click(); }, u"mCancelButton"_s));
    QVERIFY(mWindow->command_line()->get_focus_follows_cursor());
    bool shown = false;
    QVERIFY(in_dialog([&] { shown = box->isChecked(); }, u"mCancelButton"_s));
    QVERIFY(shown);
}

void TstOstrelGUIOptions::edited_paths_survive_closing_the_dialog()
{
    auto* paths = control<QLineEdit>(u"lePythonPaths"_s);
    QVERIFY(in_dialog([&] { QTest::keyClicks(paths, u"/edited"_s); }, u"mCancelButton"_s));
    QString shown;
    QVERIFY(in_dialog([&] { shown = paths->text(); }, u"mCancelButton"_s));
    QCOMPARE(shown, u"/edited"_s);
    QVERIFY(!QSettings().contains(u"/ostrelgui/ostrel/pythonpaths"_s));
    // The next save writes it.
    QVERIFY(in_dialog([] {}, u"mSaveButton"_s));
    QCOMPARE(QSettings().value(u"/ostrelgui/ostrel/pythonpaths"_s), QVariant(u"/edited"_s));
}

void TstOstrelGUIOptions::journal_prompt_acts_when_the_dialog_is_saved()
{
    auto* box = control<QCheckBox>(u"mUsingJournalPrompt"_s);
    bool asked_before = false;
    QVERIFY(in_dialog(
        [&] {
            box->click();
            asked_before = JournalEditor::do_save_prompt();
        },
        u"mSaveButton"_s));
    QVERIFY(asked_before);
    QVERIFY(!JournalEditor::do_save_prompt());
    // The page stores no key for it; the window does when it closes.
    QVERIFY(!QSettings().contains(u"/ostrelgui/journal/unsavedjournalprompt"_s));
}

void TstOstrelGUIOptions::closing_the_dialog_saves_nothing()
{
    auto* data = control<QCheckBox>(u"mUsingDataPrompt"_s);
    auto* directory = control<QCheckBox>(u"mUsingChangeDir"_s);
    HostDouble::instance().take_calls();
    QVERIFY(in_dialog(
        [&] {
            data->click();
            directory->click();
        },
        u"mCancelButton"_s));
    QVERIFY(HostDouble::instance().take_calls().filter(u"set_change_dir"_s).isEmpty());
    QCOMPARE(QSettings().allKeys(), QStringList());
    // What was clicked is gone at the next opening.
    bool shown = false;
    QVERIFY(in_dialog([&] { shown = data->isChecked() && !directory->isChecked(); }, u"mCancelButton"_s));
    QVERIFY(shown);
}

OSTREL_TEST(TstOstrelGUIOptions)
#include "tst_ostrelguioptions.moc"
