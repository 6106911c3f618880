// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/OstrelHelpMenu.h"
#include "support/MarkingTranslator.h"
#include "support/own_methods.h"
#include "support/windows.h"

#include <QBoxLayout>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QTest>

using namespace Qt::StringLiterals;

class TstHelpAboutOstrel : public MenuTestCase
{
    Q_OBJECT

private:
    template <class Widget>
    static Widget* child(const HelpAboutOstrel& dialog, const char* name)
    {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QString label(const HelpAboutOstrel& dialog, const char* name)
    {
        return child<QLabel>(dialog, name)->text();
    }
    /** The object names of what stands below each other in the frame. */
    static QStringList column(const HelpAboutOstrel& dialog)
    {
        const QLayout* const layout = child<QWidget>(dialog, "mAboutFrame")->layout();
        QStringList names;
        for (int i = 0; i < layout->count(); ++i) {
            QLayoutItem* const item = layout->itemAt(i);
            names << (item->widget()   ? item->widget()->objectName()
                      : item->layout() ? item->layout()->objectName()
                                       : u"spacer"_s);
        }
        return names;
    }
    static QLabel* named(const QString& name)
    {
        auto* made = new QLabel(name);
        made->setObjectName(name);
        return made;
    }

private slots:
    void form_has_its_names_texts_and_size()
    {
        const HelpAboutOstrel dialog(nullptr);
        QCOMPARE(dialog.objectName(), u"QtHelpAboutOstrel"_s);
        QCOMPARE(dialog.size(), QSize(512, 401));
        QCOMPARE(dialog.windowTitle(), u"About"_s);
        QCOMPARE(label(dialog, "mProductIconLabel"), u"Icon"_s);
        QCOMPARE(label(dialog, "mProductNameLabel"), u"Product Name"_s);
        QCOMPARE(label(dialog, "mProductInfoLabel"), u"Product Info"_s);
        const auto* ok = child<QPushButton>(dialog, "mOkButton");
        QCOMPARE(ok->text(), u"&OK"_s);
        QVERIFY(ok->isDefault());
    }

    void labels_are_centered_and_wrapped_as_they_should()
    {
        const HelpAboutOstrel dialog(nullptr);
        const auto* name = child<QLabel>(dialog, "mProductNameLabel");
        QCOMPARE(name->alignment(), Qt::AlignCenter);
        QCOMPARE(name->textInteractionFlags(), Qt::NoTextInteraction);
        QVERIFY(!name->wordWrap());
        for (const char* wrapped : {"mProductInfoLabel", "mOstrel3rdParty"}) {
            QCOMPARE(child<QLabel>(dialog, wrapped)->alignment(), Qt::AlignCenter);
            QVERIFY(child<QLabel>(dialog, wrapped)->wordWrap());
        }
    }

    void widgets_stand_in_their_layouts()
    {
        const HelpAboutOstrel dialog(nullptr);
        auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
        QVERIFY(grid);
        QCOMPARE(grid->objectName(), u"gridLayout"_s);
        const auto place = [grid](int index) {
            int row = -1, column = -1, rows = -1, columns = -1;
            grid->getItemPosition(index, &row, &column, &rows, &columns);
            return QList<int>{row, column, rows, columns};
        };
        const auto* scroll = child<QScrollArea>(dialog, "mScrollView");
        QCOMPARE(place(grid->indexOf(scroll)), QList<int>({0, 0, 1, 3}));
        QCOMPARE(scroll->frameShape(), QFrame::NoFrame);
        QVERIFY(scroll->widgetResizable());
        QCOMPARE(scroll->widget(), child<QWidget>(dialog, "mAboutFrame"));
        QCOMPARE(place(grid->indexOf(child<QPushButton>(dialog, "mOkButton"))), QList<int>({1, 1, 1, 1}));
        for (const int side : {0, 2}) {
            const QLayoutItem* const beside = grid->itemAtPosition(1, side);
            QVERIFY(const_cast<QLayoutItem*>(beside)->spacerItem());
            QVERIFY(beside->expandingDirections() & Qt::Horizontal);
        }

        auto* frame = qobject_cast<QVBoxLayout*>(scroll->widget()->layout());
        QVERIFY(frame);
        QCOMPARE(frame->objectName(), u"verticalLayout"_s);
        QCOMPARE(column(dialog), QStringList({u"horizontalLayout"_s, u"mProductInfoLabel"_s,
                                              u"mOstrel3rdParty"_s, u"spacer"_s}));
        QVERIFY(frame->itemAt(3)->expandingDirections() & Qt::Vertical);
        auto* head = qobject_cast<QHBoxLayout*>(frame->itemAt(0)->layout());
        QVERIFY(head);
        QCOMPARE(head->count(), 4);
        QCOMPARE(head->itemAt(0)->widget()->objectName(), u"mProductIconLabel"_s);
        QVERIFY(head->itemAt(1)->expandingDirections() & Qt::Horizontal);
        QCOMPARE(head->itemAt(2)->widget()->objectName(), u"mProductNameLabel"_s);
        QVERIFY(head->itemAt(3)->expandingDirections() & Qt::Horizontal);
    }

    void texts_of_the_form_are_translated_in_its_own_context()
    {
        const MarkingTranslator marker("QtHelpAboutOstrel");
        const HelpAboutOstrel dialog(nullptr);
        QCOMPARE(dialog.windowTitle(), u"<About>"_s);
        QCOMPARE(label(dialog, "mProductIconLabel"), u"<Icon>"_s);
        QCOMPARE(child<QPushButton>(dialog, "mOkButton")->text(), u"<&OK>"_s);
        QVERIFY(!label(dialog, "mOstrel3rdParty").contains(u'<'));
    }

    void class_adds_no_methods() { QCOMPARE(own_methods(HelpAboutOstrel::staticMetaObject), QStringList()); }

    void included_software_is_listed()
    {
        HostDouble::instance().python_version[0] = 4;
        HostDouble::instance().python_version[1] = 1234;
        HostDouble::instance().python_version[2] = 0;
        const HelpAboutOstrel dialog(nullptr);
        QCOMPARE(label(dialog, "mOstrel3rdParty"),
                 u"ostrel-tests includes:\nQt %1 by The Qt Company\nPython 4.1234.0 (www.python.org)"_s.arg(
                     QLatin1StringView(qVersion())));
    }

    void framework_is_asked_once_for_its_interpreter()
    {
        const HelpAboutOstrel dialog(nullptr);
        QCOMPARE(
            HostDouble::instance().take_calls(),
            QStringList({u"Framework::python_interpreter()"_s, u"FennarPythonInterpreter::version_major()"_s,
                         u"FennarPythonInterpreter::version_minor()"_s,
                         u"FennarPythonInterpreter::version_micro()"_s}));
    }

    void parts_of_the_list_are_translated_one_by_one()
    {
        const MarkingTranslator marker("HelpAboutOstrel");
        const HelpAboutOstrel dialog(nullptr);
        QCOMPARE(
            label(dialog, "mOstrel3rdParty"),
            u"<ostrel-tests includes:\n><Qt %1>< by The Qt Company\n><Python 3.11.2 (www.python.org)>"_s.arg(
                QLatin1StringView(qVersion())));
    }

    void later_application_name_does_not_reach_the_list()
    {
        const QString before = QCoreApplication::applicationName();
        const auto restore = qScopeGuard([&] { QCoreApplication::setApplicationName(before); });
        HelpAboutOstrel dialog(nullptr);
        const QString list = label(dialog, "mOstrel3rdParty");
        QCoreApplication::setApplicationName(u"other"_s);
        HostDouble::instance().python_version[0] = 9;
        dialog.finish_populating_dialog();
        QCOMPARE(label(dialog, "mOstrel3rdParty"), list);
    }

    void application_name_that_looks_like_markup_is_shown_as_it_is()
    {
        const QString before = QCoreApplication::applicationName();
        const auto restore = qScopeGuard([&] { QCoreApplication::setApplicationName(before); });
        QCoreApplication::setApplicationName(u"<b>a</b>&amp;"_s);
        HelpAboutOstrel dialog(nullptr);
        auto* const list = child<QLabel>(dialog, "mOstrel3rdParty");
        QVERIFY(list->text().startsWith(u"<b>a</b>&amp; includes:\n"_s));
        QCOMPARE(list->textFormat(), Qt::PlainText);
    }

    void nothing_set_shows_empty_tags_and_the_word_icon()
    {
        HelpAboutOstrel dialog(nullptr);
        dialog.finish_populating_dialog();
        QCOMPARE(label(dialog, "mProductNameLabel"), u"<h1></h>"_s);
        QCOMPARE(label(dialog, "mProductInfoLabel"), u"<b></b>"_s);
        QCOMPARE(label(dialog, "mProductIconLabel"), u"Icon"_s);
    }

    void what_is_set_is_shown_when_the_dialog_is_filled()
    {
        HelpAboutOstrel dialog(nullptr);
        dialog.setProductName(u"Na<i>me</i>"_s);
        dialog.setProductInfo(u"In\u00fcfo"_s);
        dialog.setIconPath(u":/fennargui-no-such-file"_s);
        QCOMPARE(label(dialog, "mProductNameLabel"), u"Product Name"_s);
        QCOMPARE(label(dialog, "mProductInfoLabel"), u"Product Info"_s);
        QCOMPARE(label(dialog, "mProductIconLabel"), u"Icon"_s);
        dialog.finish_populating_dialog();
        QCOMPARE(label(dialog, "mProductNameLabel"), u"<h1>Na<i>me</i></h>"_s);
        QCOMPARE(label(dialog, "mProductInfoLabel"), u"<b>In\u00fcfo</b>"_s);
        // A picture that cannot be loaded leaves the place empty.
        QCOMPARE(label(dialog, "mProductIconLabel"), QString());
        QVERIFY(child<QLabel>(dialog, "mProductIconLabel")->pixmap(Qt::ReturnByValue).isNull());
    }

    void open_dialog_shows_the_old_name()
    {
        HelpAboutOstrel* const dialog = window()->help_menu()->get_help_about_dialog();
        dialog->setProductName(u"First"_s);
        dialog->finish_populating_dialog();
        dialog->show();
        dialog->setProductName(u"Second"_s);
        QCOMPARE(label(*dialog, "mProductNameLabel"), u"<h1>First</h>"_s);
        dialog->finish_populating_dialog();
        QCOMPARE(label(*dialog, "mProductNameLabel"), u"<h1>Second</h>"_s);
        dialog->close();
    }

    void icon_path_is_looked_up_beside_the_application_unless_it_names_fennargui()
    {
        QPixmap picture(5, 7);
        picture.fill(Qt::red);
        const QString beside = u"tst_helpaboutostrel_icon.png"_s;
        const QString file = QCoreApplication::applicationDirPath() + u'/' + beside;
        const QString complete = QDir::tempPath() + u"/a-fennargui-icon.png"_s;
        const auto remove = qScopeGuard([&] {
            QFile::remove(file);
            QFile::remove(complete);
        });
        QVERIFY(picture.save(file));
        QVERIFY(picture.save(complete));

        HelpAboutOstrel dialog(nullptr);
        const auto shown_size = [&dialog](const QString& path) {
            dialog.setIconPath(path);
            dialog.finish_populating_dialog();
            return child<QLabel>(dialog, "mProductIconLabel")->pixmap(Qt::ReturnByValue).size();
        };
        QCOMPARE(shown_size(beside), QSize(5, 7));
        QCOMPARE(shown_size(u"no such file"_s), QSize(0, 0));
        QCOMPARE(shown_size(complete), QSize(5, 7));
        // An empty path leaves what is shown.
        QCOMPARE(shown_size(QString()), QSize(5, 7));
        // These name existing pictures, but are taken as relative to the application.
        QCOMPARE(shown_size(u":/ostrelgui/images/light/fennar.svg"_s), QSize(0, 0));
        const QString other_case = QString(complete).replace(u"fennargui"_s, u"Fennargui"_s);
        QVERIFY(picture.save(other_case));
        const bool relative = shown_size(other_case).isEmpty();
        QVERIFY(QFile::remove(other_case));
        QVERIFY(relative);
    }

    void added_widgets_stand_above_the_list_in_order()
    {
        HelpAboutOstrel dialog(nullptr);
        QLabel* const one = named(u"one"_s);
        QLabel* const two = named(u"two"_s);
        dialog.add_about(one);
        dialog.add_about(two);
        dialog.add_about(nullptr);
        QCOMPARE(column(dialog), QStringList({u"horizontalLayout"_s, u"mProductInfoLabel"_s, u"one"_s,
                                              u"two"_s, u"mOstrel3rdParty"_s, u"spacer"_s}));
        QCOMPARE(one->parentWidget(), child<QWidget>(dialog, "mAboutFrame"));
        // Once more moves it, and not below the list.
        dialog.add_about(one);
        QCOMPARE(column(dialog), QStringList({u"horizontalLayout"_s, u"mProductInfoLabel"_s, u"two"_s,
                                              u"one"_s, u"mOstrel3rdParty"_s, u"spacer"_s}));
    }

    void widget_is_shown_at_once_only_in_a_visible_dialog()
    {
        HelpAboutOstrel dialog(nullptr);
        QLabel* const hidden = named(u"hidden"_s);
        hidden->hide();
        dialog.add_about(hidden);
        dialog.show();
        QVERIFY(hidden->isHidden());
        QLabel* const shown = named(u"shown"_s);
        shown->hide();
        dialog.add_about(shown);
        QVERIFY(shown->isVisible());
        dialog.close();
    }

    void new_widget_is_visible_when_the_dialog_opens()
    {
        HelpAboutOstrel dialog(nullptr);
        QLabel* const widget = named(u"new"_s);
        dialog.add_about(widget);
        dialog.show();
        QVERIFY(widget->isVisible());
        dialog.close();
    }

    void removed_widget_is_hidden_and_not_deleted()
    {
        HelpAboutOstrel dialog(nullptr);
        const QStringList before = column(dialog);
        const QPointer<QLabel> widget = named(u"mine"_s);
        dialog.add_about(widget);
        dialog.show();
        QVERIFY(widget->isVisible());
        dialog.remove_about(widget);
        QVERIFY(widget);
        QVERIFY(widget->isHidden());
        QCOMPARE(column(dialog), before);
        // It can come back.
        dialog.add_about(widget);
        QVERIFY(widget->isVisible());
        dialog.close();
    }

    void what_was_not_added_is_left_alone()
    {
        HelpAboutOstrel dialog(nullptr);
        QWidget other;
        auto* const foreign = new QLabel(u"foreign"_s, &other);
        other.show();
        dialog.remove_about(foreign);
        dialog.remove_about(nullptr);
        dialog.remove_about(child<QPushButton>(dialog, "mOkButton"));
        QVERIFY(foreign->isVisible());
        QCOMPARE(foreign->parent(), &other);
        QVERIFY(!child<QPushButton>(dialog, "mOkButton")->isHidden());
        other.close();
    }

    void ok_and_return_close_the_dialog()
    {
        HelpAboutOstrel dialog(nullptr);
        QVERIFY(show_active(&dialog));
        QTest::mouseClick(child<QPushButton>(dialog, "mOkButton"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QVERIFY(show_active(&dialog));
        QTest::keyClick(&dialog, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    }
};

OSTREL_TEST(TstHelpAboutOstrel)
#include "tst_helpaboutostrel.moc"
