// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/windows/scheme_palette.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSettings>
#include <QStyle>
#include <QTest>

#include <cmath>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** How light a color is, from 0 to 1, as the eye has it. */
double luminance(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double one = luminance(a);
    const double other = luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

bool is_dark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QAction* entry(const char* name)
{
    const auto menus = Ostrel::instance()->findChildren<QMenu*>();
    for (const QMenu* menu : menus) {
        const QList<QAction*> actions = menu->actions();
        for (QAction* action : actions) {
            if (action->objectName() == u"scheme_"_s + QLatin1StringView(name))
                return action;
        }
    }
    return nullptr;
}

} // namespace

/** The colors that a user chooses, in the whole application. */
class TstColorScheme : public TestCase
{
    Q_OBJECT

protected:
    void tear_down() override;

private slots:
    void texts_can_be_read_data();
    void texts_can_be_read();
    void command_changes_all_windows_and_is_kept();
    void once_is_not_kept();
    void settings_that_make_no_sense_change_nothing();
    void entries_of_the_menu_send_the_command_and_show_the_choice();
    void current_line_of_the_editor_follows();
    void sign_of_crowded_toolbars_is_seen_on_a_dark_ground();
    void boxes_to_be_ticked_are_seen_in_both_schemes_data();
    void boxes_to_be_ticked_are_seen_in_both_schemes();
    void wrong_words_are_named();

private:
    void start()
    {
        mWorkbench = std::make_unique<Workbench>();
        mWorkbench->leave_components_out();
        QVERIFY(mWorkbench->load());
        QVERIFY(show_active(Ostrel::instance()));
    }
    void end()
    {
        if (mWorkbench)
            mWorkbench->unload();
        mWorkbench.reset();
    }
    QString enter(const QString& line)
    {
        CommandWidget* page = mWorkbench->console()->command_page();
        page->clearToPrompt();
        mWorkbench->console()->run_line(line);
        QCoreApplication::processEvents();
        return page->toPlainText();
    }
    static QString kept() { return QSettings().value(u"fennar/scheme"_s).toString(); }

    std::unique_ptr<Workbench> mWorkbench;
};

void TstColorScheme::tear_down()
{
    end();
}

void TstColorScheme::texts_can_be_read_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void TstColorScheme::texts_can_be_read()
{
    QFETCH(const bool, dark);
    const QPalette palette = scheme_palette(dark);
    QCOMPARE(is_dark(palette), dark);
    struct Pair
    {
        QPalette::ColorRole text;
        QPalette::ColorRole ground;
        double least;
    };
    // 4.5 is what people with weak sight need.
    for (const Pair& pair : {Pair{QPalette::WindowText, QPalette::Window, 7},
                             {QPalette::Text, QPalette::Base, 7},
                             {QPalette::Text, QPalette::AlternateBase, 7},
                             {QPalette::ButtonText, QPalette::Button, 7},
                             {QPalette::HighlightedText, QPalette::Highlight, 4.5},
                             {QPalette::ToolTipText, QPalette::ToolTipBase, 7},
                             {QPalette::PlaceholderText, QPalette::Base, 4.5},
                             {QPalette::Link, QPalette::Base, 4.5},
                             {QPalette::LinkVisited, QPalette::Window, 4.5},
                             {QPalette::BrightText, QPalette::Window, 4.5}}) {
        const double found = contrast(palette.color(pair.text), palette.color(pair.ground));
        QVERIFY2(found >= pair.least,
                 qPrintable(u"%1 on %2: %3"_s.arg(pair.text).arg(pair.ground).arg(found)));
    }
    for (const auto& [text, ground] : {std::pair{QPalette::WindowText, QPalette::Window},
                                       {QPalette::Text, QPalette::Base},
                                       {QPalette::ButtonText, QPalette::Button}}) {
        const double off = contrast(palette.color(QPalette::Disabled, text), palette.color(ground));
        QVERIFY2(off >= 2.5, qPrintable(u"%1: %2"_s.arg(text).arg(off)));
        QVERIFY(off < contrast(palette.color(text), palette.color(ground)) / 1.5);
    }
}

void TstColorScheme::command_changes_all_windows_and_is_kept()
{
    const QPalette system = QApplication::palette();
    start();
    QVERIFY(enter(u"scheme"_s).contains(u"\nscheme system\n"_s));
    QCOMPARE(kept(), QString());
    enter(u"scheme dark"_s);
    QVERIFY(enter(u"scheme"_s).contains(u"\nscheme dark\n"_s));
    for (const QWidget* widget : std::initializer_list<const QWidget*>{
             Ostrel::instance(), mWorkbench->console()->command_page(), Ostrel::instance()->journal_editor()})
        QVERIFY2(is_dark(widget->palette()), widget->metaObject()->className());
    QCOMPARE(kept(), u"dark"_s);
    end();
    QCOMPARE(QApplication::palette(), system);
    QCOMPARE(QApplication::style()->name(), u"fusion"_s);

    start();
    QVERIFY(is_dark(Ostrel::instance()->palette()));
    enter(u"scheme light"_s);
    QCOMPARE(Ostrel::instance()->palette().color(QPalette::Highlight),
             scheme_palette(false).color(QPalette::Highlight));
    enter(u"scheme system"_s);
    QCOMPARE(QApplication::palette(), system);
    QCOMPARE(QApplication::style()->name(), u"fusion"_s);
    QCOMPARE(kept(), u"system"_s);
}

void TstColorScheme::once_is_not_kept()
{
    start();
    enter(u"scheme light"_s);
    enter(u"scheme dark once"_s);
    QVERIFY(is_dark(Ostrel::instance()->palette()));
    QCOMPARE(kept(), u"light"_s);
}

void TstColorScheme::settings_that_make_no_sense_change_nothing()
{
    QSettings().setValue(u"fennar/scheme"_s, u"pink"_s);
    const QPalette system = QApplication::palette();
    start();
    QCOMPARE(QApplication::palette(), system);
    QVERIFY(entry("system")->isChecked());
}

void TstColorScheme::entries_of_the_menu_send_the_command_and_show_the_choice()
{
    start();
    // One holds at a time, and menus and screen readers say so.
    for (const char* name : {"system", "light", "dark"})
        QVERIFY(entry(name)->actionGroup() && entry(name)->actionGroup() == entry("dark")->actionGroup() &&
                entry(name)->actionGroup()->isExclusive());
    for (const char* name : {"dark", "light", "system"}) {
        mWorkbench->console()->command_page()->clearToPrompt();
        entry(name)->trigger();
        QCoreApplication::processEvents();
        const QString text = mWorkbench->console()->command_page()->toPlainText();
        QVERIFY2(text.startsWith(u"Fennar>scheme "_s + QLatin1StringView(name)), qPrintable(text));
        for (const char* other : {"dark", "light", "system"})
            QCOMPARE(entry(other)->isChecked(), qstrcmp(name, other) == 0);
    }
    entry("system")->trigger(); // what is chosen stays chosen
    QVERIFY(entry("system")->isChecked());
    mWorkbench->unload();
    QVERIFY(!Ostrel::instance());
    mWorkbench.reset();
}

void TstColorScheme::current_line_of_the_editor_follows()
{
    start();
    const auto* document = Ostrel::instance()->journal_editor()->findChild<QPlainTextEdit*>();
    for (const QString& scheme : {u"light"_s, u"dark"_s, u"light"_s}) {
        enter(u"scheme "_s + scheme);
        QCOMPARE(is_dark(document->palette()), scheme == "dark"_L1);
        const QColor line = document->extraSelections().value(0).format.background().color();
        const QColor text = document->palette().color(QPalette::Text);
        const QColor ground = document->palette().color(QPalette::Base);
        QVERIFY2(contrast(line, text) > 4.5, qPrintable(scheme + u' ' + line.name() + u' ' + text.name()));
        QVERIFY2(contrast(ground, text) > 4.5, qPrintable(scheme + u' ' + ground.name()));
    }
    QCOMPARE(document->palette().color(QPalette::Text), scheme_palette(false).color(QPalette::Text));
}

void TstColorScheme::sign_of_crowded_toolbars_is_seen_on_a_dark_ground()
{
    start();
    for (const char* name : {"dark", "light"}) {
        enter(u"scheme "_s + QLatin1StringView(name));
        const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
        const QImage image = icon.pixmap(icon.availableSizes().value(0), 1.0).toImage();
        QVERIFY(!image.isNull());
        double best = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (pixel.alpha() > 200)
                    best = std::max(best, contrast(pixel, QApplication::palette().color(QPalette::Window)));
            }
        }
        QVERIFY2(best > 4.5, qPrintable(u"%1: %2"_s.arg(QLatin1StringView(name)).arg(best)));
    }
}

void TstColorScheme::boxes_to_be_ticked_are_seen_in_both_schemes_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::newRow("light") << u"light"_s;
    QTest::newRow("dark") << u"dark"_s;
}

void TstColorScheme::boxes_to_be_ticked_are_seen_in_both_schemes()
{
    QFETCH(const QString, scheme);
    start();
    enter(u"scheme "_s + scheme);
    QCheckBox box;
    QRadioButton round;
    QListWidget list;
    auto* item = new QListWidgetItem(&list);
    item->setCheckState(Qt::Unchecked);
    list.setFrameShape(QFrame::NoFrame);
    for (QWidget* widget : std::initializer_list<QWidget*>{&box, &round, &list}) {
        widget->resize(40, 40);
        const QImage image = widget->grab().toImage();
        const QColor ground = image.pixelColor(38, 38);
        double best = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                best = std::max(best, contrast(image.pixelColor(x, y), ground));
        }
        const QString found = u"%1: %2"_s.arg(QLatin1StringView(widget->metaObject()->className())).arg(best);
        QVERIFY2(best > (scheme == "dark"_L1 ? 3 : 1.5), qPrintable(found));
    }
}

void TstColorScheme::wrong_words_are_named()
{
    start();
    QVERIFY(enter(u"scheme once"_s).contains(u"ERROR: scheme: column 8: expected \"system\""_s));
    QVERIFY(enter(u"scheme pink"_s)
                .contains(u"ERROR: scheme: column 8: expected \"system\", \"light\", \"dark\" or the end"_s));
    QVERIFY(
        enter(u"scheme dark twice"_s).contains(u"ERROR: scheme: column 13: expected \"once\" or the end"_s));
    QVERIFY(enter(u"scheme dark once more"_s).contains(u"ERROR: scheme: column 18: expected the end"_s));
    QVERIFY(!is_dark(Ostrel::instance()->palette()));
}

OSTREL_TEST(TstColorScheme)
#include "tst_colorscheme.moc"
