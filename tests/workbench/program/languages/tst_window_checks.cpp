// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Catalog.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "window_checks.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <memory>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

const auto long_text = u"a text that needs far more room than that"_s;

/** A dialog with one widget that has the text @p text and the width @p width. */
template <class Widget>
std::unique_ptr<QDialog> dialog_with(const QString& text, int width)
{
    auto dialog = std::make_unique<QDialog>();
    dialog->resize(600, 200);
    auto* widget = new Widget(dialog.get());
    if constexpr (std::is_same_v<Widget, QGroupBox>)
        widget->setTitle(text);
    else if constexpr (std::is_same_v<Widget, QComboBox>)
        widget->addItem(text);
    else if constexpr (std::is_same_v<Widget, QLineEdit>)
        widget->setPlaceholderText(text);
    else if constexpr (std::is_same_v<Widget, QTreeWidget>)
        widget->addTopLevelItem(new QTreeWidgetItem({text}));
    else
        widget->setText(text);
    widget->setGeometry(10, 10, width, 60);
    return dialog;
}

template <class Widget>
bool finds_clipping()
{
    const auto narrow = dialog_with<Widget>(long_text, 60);
    const auto wide = dialog_with<Widget>(long_text, 500);
    if (!show_active(narrow.get()) || !show_active(wide.get()))
        return false;
    return !clipped_texts(narrow.get()).isEmpty() && clipped_texts(wide.get()).isEmpty();
}

} // namespace

/** The checks themselves: what they are there to find, they find. */
class TstWindowChecks : public TestCase
{
    Q_OBJECT

private slots:
    void clipped_texts_are_found();
    void label_that_is_not_high_enough_is_found();
    void mnemonics_that_meet_are_found();
    void nameless_widgets_are_found();
    void fields_that_tab_leaves_out_are_found();
    void texts_of_all_kinds_are_shown();
    void catalog_tells_sources_from_translations_data();
    void catalog_tells_sources_from_translations();
};

void TstWindowChecks::clipped_texts_are_found()
{
    QVERIFY(finds_clipping<QLabel>());
    QVERIFY(finds_clipping<QPushButton>());
    QVERIFY(finds_clipping<QCheckBox>());
    QVERIFY(finds_clipping<QRadioButton>());
    QVERIFY(finds_clipping<QToolButton>());
    QVERIFY(finds_clipping<QGroupBox>());
    QVERIFY(finds_clipping<QComboBox>());
    QVERIFY(finds_clipping<QLineEdit>());
    QVERIFY(finds_clipping<QTreeWidget>());
}

void TstWindowChecks::label_that_is_not_high_enough_is_found()
{
    const auto dialog = dialog_with<QLabel>(long_text, 120);
    auto* label = dialog->findChild<QLabel*>();
    label->setWordWrap(true);
    QVERIFY(show_active(dialog.get()));
    QCOMPARE(clipped_texts(dialog.get()), QStringList());
    label->setFixedHeight(20);
    QCOMPARE(clipped_texts(dialog.get()).size(), 1);
}

void TstWindowChecks::mnemonics_that_meet_are_found()
{
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* first = new QPushButton(u"&One"_s, &dialog);
    auto* second = new QPushButton(u"&Two"_s, &dialog);
    layout->addWidget(first);
    layout->addWidget(second);
    QMenu menu(&dialog);
    menu.addAction(u"&Three"_s);
    QVERIFY(show_active(&dialog));
    QCOMPARE(mnemonic_faults(&dialog), QStringList());
    second->setText(u"O&ther"_s);
    QCOMPARE(mnemonic_faults(&dialog), QStringList());
    second->setText(u"&Other"_s);
    QCOMPARE(mnemonic_faults(&dialog).size(), 1);
    second->setText(u"&Two"_s);
    second->setShortcut(QKeySequence(u"Alt+W"_s));
    QCOMPARE(mnemonic_faults(&dialog).size(), 1);
    second->setShortcut(QKeySequence(u"Alt+T"_s));
    menu.addAction(u"&Tree"_s);
    QCOMPARE(mnemonic_faults(&dialog).size(), 1);
}

void TstWindowChecks::nameless_widgets_are_found()
{
    const auto dialog = dialog_with<QToolButton>({}, 30);
    auto* edit = new QLineEdit(dialog.get());
    QVERIFY(show_active(dialog.get()));
    QCOMPARE(nameless_widgets(dialog.get()).size(), 2);
    dialog->findChild<QToolButton*>()->setAccessibleName(u"Name"_s);
    QCOMPARE(nameless_widgets(dialog.get()).size(), 1);
    auto* label = new QLabel(u"&Field"_s, dialog.get());
    label->setBuddy(edit);
    label->show();
    QCOMPARE(nameless_widgets(dialog.get()), QStringList());
}

void TstWindowChecks::fields_that_tab_leaves_out_are_found()
{
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    QList<QLineEdit*> edits;
    for (int i = 0; i < 3; ++i) {
        edits << new QLineEdit(&dialog);
        layout->addWidget(edits.last());
    }
    QVERIFY(show_active(&dialog));
    QCOMPARE(tab_faults(&dialog), QStringList());
    // A field that takes the key for itself holds the focus for ever.
    struct Keeper : QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            return event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab;
        }
    } keeper;
    edits[1]->installEventFilter(&keeper);
    QVERIFY(!tab_faults(&dialog).isEmpty());
}

void TstWindowChecks::texts_of_all_kinds_are_shown()
{
    QDialog dialog;
    dialog.setWindowTitle(u"title"_s);
    auto* layout = new QVBoxLayout(&dialog);
    auto* button = new QToolButton(&dialog);
    auto* action = new QAction(u"action"_s, button);
    action->setStatusTip(u"status"_s);
    button->addAction(action);
    button->setAccessibleName(u"name"_s);
    auto* box = new QGroupBox(u"group"_s, &dialog);
    box->setToolTip(u"tip"_s);
    auto* tabs = new QTabBar(&dialog);
    tabs->addTab(u"tab"_s);
    auto* combo = new QComboBox(&dialog);
    combo->addItem(u"item"_s);
    auto* edit = new QLineEdit(u"what the user writes"_s, &dialog);
    edit->setPlaceholderText(u"placeholder"_s);
    auto* tree = new QTreeWidget(&dialog);
    tree->setHeaderLabels({u"header"_s});
    auto* item = new QTreeWidgetItem(tree, {u"branch"_s});
    new QTreeWidgetItem(item, {u"leaf"_s});
    for (QWidget* widget : std::initializer_list<QWidget*>{button, box, tabs, combo, edit, tree})
        layout->addWidget(widget);
    QMenu menu(u"menu"_s, &dialog);
    QStringList texts;
    for (const ShownText& shown : shown_texts(&dialog))
        texts << shown.text;
    for (const QString& text :
         {u"title"_s, u"action"_s, u"status"_s, u"name"_s, u"group"_s, u"tip"_s, u"tab"_s, u"item"_s,
          u"placeholder"_s, u"header"_s, u"branch"_s, u"leaf"_s, u"menu"_s})
        QVERIFY2(texts.contains(text), qPrintable(text));
    QVERIFY(!texts.contains(u"what the user writes"_s));
}

void TstWindowChecks::catalog_tells_sources_from_translations_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("translated");

    QTest::newRow("translation") << u"Ö&ffnen..."_s << true;
    QTest::newRow("without mnemonic and ellipsis") << u"Öffnen"_s << true;
    QTest::newRow("placeholder filled in") << u"%1 wird abgespielt"_s.arg(u"part.jou"_s) << true;
    QTest::newRow("same in all languages") << u"Python"_s << true;
    QTest::newRow("number") << u"12.5"_s << true;
    QTest::newRow("cut in the middle") << u"Python-\u2026weisung"_s << true;
    QTest::newRow("rich text")
        << u"<qt><b>Journal abspielen</b><br/>Spielt ein Journal oder ein Python-Skript ab.</qt>"_s << true;
    QTest::newRow("file filter") << u"Journaldateien (*.jou *.py)"_s << true;
    QTest::newRow("source") << u"&Open..."_s << false;
    QTest::newRow("source in rich text") << u"<qt><b>Play Journal</b></qt>"_s << false;
    QTest::newRow("source in a placeholder") << u"Zu Play Journal gehen"_s << false;
    QTest::newRow("one line of two") << u"Öffnen\nOpen"_s << false;
    QTest::newRow("never translated") << u"Brand new text"_s << false;
}

void TstWindowChecks::catalog_tells_sources_from_translations()
{
    QFETCH(const QString, text);
    QFETCH(const bool, translated);
    const Catalog catalog(u"de"_s);
    QCOMPARE(catalog.errors(), QStringList());
    QCOMPARE(catalog.judge(text).isEmpty(), translated);
}

OSTREL_TEST(TstWindowChecks)

#include "tst_window_checks.moc"
