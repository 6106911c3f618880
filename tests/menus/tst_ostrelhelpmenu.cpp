// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/OstrelHelpMenu.h"
#include "support/EventActor.h"
#include "support/MarkingTranslator.h"
#include "support/own_methods.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class TstOstrelHelpMenu : public MenuTestCase
{
    Q_OBJECT

private:
    OstrelHelpMenu* help() const { return window()->help_menu(); }
    QMenu* menu() const { return bar_menu(u"&Help"_s); }
    QAction* about_action() const { return help()->findChild<QAction*>(u"mAboutAction"_s); }

private slots:
    void object_and_menu_have_their_names_and_parents()
    {
        QCOMPARE(help()->objectName(), u"OstrelHelpMenu"_s);
        QCOMPARE(help()->parent(), window());
        QVERIFY(menu());
        QCOMPARE(menu()->parent(), window()->menuBar());
        QVERIFY(about_action());
        QCOMPARE(about_action()->parent(), help());
        QCOMPARE(about_action()->text(), u"&About"_s);
        QCOMPARE(help()->children(), QObjectList({about_action()}));
    }

    void slots_stand_in_their_order_and_there_are_no_signals()
    {
        QCOMPARE(own_methods(OstrelHelpMenu::staticMetaObject),
                 QStringList({u"slot help_tip_of_day()"_s, u"slot help_about()"_s}));
    }

    void texts_are_translated()
    {
        const MarkingTranslator marker("OstrelHelpMenu");
        const OstrelHelpMenu second(window());
        QCOMPARE(bar().last(), u"<&Help>"_s);
        QCOMPARE(second.findChild<QAction*>()->text(), u"<&About>"_s);
    }

    void menu_is_the_last_and_holds_about()
    {
        QCOMPARE(bar().last(), u"&Help"_s);
        QCOMPARE(rows(menu()), QStringList({u"&About"_s}));
    }

    void dialog_is_made_first()
    {
        OstrelHelpMenu second(window());
        const QObjectList children = window()->children();
        // The menu belongs to the menu bar.
        QCOMPARE(children.last(), second.get_help_about_dialog());
        QCOMPARE(children.at(children.size() - 2), &second);
        QCOMPARE(second.get_help_about_dialog()->parent(), window());
    }

    void about_stays_last_and_manuals_come_first()
    {
        QAction item(u"item"_s);
        QAction manual(u"manual"_s);
        QAction more(u"more"_s);
        QAction another(u"another"_s);
        help()->add_item(&item, "a");
        help()->add_manual(&manual, "b");
        std::vector<QAction*> list{nullptr, &more};
        help()->add_items(list, "a");
        help()->add_manual(&another, "a");
        QCOMPARE(rows(menu()), QStringList({u"manual"_s, u"another"_s, u"---"_s, u"item"_s, u"---"_s,
                                            u"more"_s, u"---"_s, u"&About"_s}));
        help()->remove_component_items("a");
        QCOMPARE(rows(menu()), QStringList({u"manual"_s, u"---"_s, u"---"_s, u"&About"_s}));
        help()->remove_component_items("b");
        QCOMPARE(rows(menu()), QStringList({u"&About"_s}));
        help()->remove_component_items("helpAbout");
        QCOMPARE(rows(menu()), QStringList());
    }

    void null_component_adds_and_removes_nothing()
    {
        QAction one(u"one"_s);
        std::vector<QAction*> list{&one};
        help()->add_item(&one, nullptr);
        help()->add_items(list, nullptr);
        help()->add_manual(&one, nullptr);
        help()->remove_component_items(nullptr);
        QCOMPARE(rows(menu()), QStringList({u"&About"_s}));
    }

    void widgets_are_passed_on_to_the_dialog()
    {
        auto* widget = new QLabel(u"mine"_s);
        help()->add_about(widget);
        QCOMPARE(widget->parentWidget()->objectName(), u"mAboutFrame"_s);
        QCOMPARE(widget->window(), help()->get_help_about_dialog());
        help()->remove_about(widget);
        QVERIFY(widget->isHidden());
        help()->add_about(nullptr);
        help()->remove_about(nullptr);
    }

    void about_opens_the_dialog_modal_with_what_was_set_last()
    {
        HelpAboutOstrel* const dialog = help()->get_help_about_dialog();
        const auto* name = dialog->findChild<QLabel*>(u"mProductNameLabel"_s);
        QStringList seen;
        QList<bool> modal;
        const auto open = [&] {
            QTimer::singleShot(0, dialog, [&] {
                modal << (QApplication::activeModalWidget() == dialog);
                seen << name->text();
                dialog->setProductName(u"Later"_s);
                seen << name->text();
                QTest::mouseClick(dialog->findChild<QPushButton*>(u"mOkButton"_s), Qt::LeftButton);
            });
            about_action()->trigger();
        };
        dialog->setProductName(u"First"_s);
        open();
        QCOMPARE(modal, QList<bool>({true}));
        QCOMPARE(seen, QStringList({u"<h1>First</h>"_s, u"<h1>First</h>"_s}));
        QVERIFY(!dialog->isVisible());
        open();
        QCOMPARE(seen.mid(2), QStringList({u"<h1>Later</h>"_s, u"<h1>Later</h>"_s}));
        QCOMPARE(modal, QList<bool>({true, true}));
    }

    void open_dialog_comes_to_the_front_as_it_is()
    {
        HelpAboutOstrel* const dialog = help()->get_help_about_dialog();
        QString name;
        bool open_still = false;
        QTimer::singleShot(0, dialog, [&] {
            dialog->setProductName(u"Later"_s);
            // Nests no second loop, of which Qt would warn.
            help()->help_about();
            open_still = dialog->isVisible();
            name = dialog->findChild<QLabel*>(u"mProductNameLabel"_s)->text();
            dialog->reject();
        });
        help()->help_about();
        QVERIFY(open_still);
        QCOMPARE(name, u"<h1></h>"_s);
    }

    void dialog_that_is_coming_up_or_going_is_not_opened_again()
    {
        HelpAboutOstrel* const dialog = help()->get_help_about_dialog();
        const auto open = [&] {
            // Nests no second loop, of which Qt would warn.
            help()->help_about();
            return false;
        };
        const EventActor comes(dialog, QEvent::Polish, open);
        const EventActor goes(dialog, QEvent::Hide, open);
        QTimer::singleShot(0, dialog, [&] { dialog->reject(); });
        help()->help_about();
        QVERIFY(comes.has_acted());
        QVERIFY(goes.has_acted());
        QVERIFY(!dialog->isVisible());
    }

    void window_may_be_deleted_under_the_dialog()
    {
        QTimer::singleShot(0, help(), [&] { delete_window(); });
        help()->help_about();
        QVERIFY(!Ostrel::instance());
    }

    void tip_of_the_day_does_nothing()
    {
        const QWidgetList before = QApplication::topLevelWidgets();
        help()->help_tip_of_day();
        QCOMPARE(QApplication::topLevelWidgets(), before);
        QCOMPARE(HostDouble::instance().take_calls(), QStringList());
    }

    void end_leaves_the_dialog_and_the_menu_to_the_window()
    {
        auto* second = new OstrelHelpMenu(window());
        const QPointer<QMenu> second_menu = window()->menuBar()->actions().last()->menu();
        const QPointer<HelpAboutOstrel> dialog = second->get_help_about_dialog();
        QAction one(u"one"_s);
        second->add_item(&one, "test");
        delete second;
        QVERIFY(second_menu);
        // Its own entry goes with it; the component's and the separator stay in the menu.
        QCOMPARE(rows(second_menu), QStringList({u"one"_s, u"---"_s}));
        QVERIFY(dialog);
        delete_window();
        QVERIFY(!second_menu);
        QVERIFY(!dialog);
        QCOMPARE(one.text(), u"one"_s);
    }
};

OSTREL_TEST(TstOstrelHelpMenu)
#include "tst_ostrelhelpmenu.moc"
