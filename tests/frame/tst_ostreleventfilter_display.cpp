// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/OstrelEventFilter.h"
#include "support/TestCase.h"
#include "support/patience.h"
#include "support/real_input.h"
#include "support/windows.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Runs the queue as the framework does during a command, until @p done. Nothing else runs it meanwhile, so
// that no event arrives unfiltered.
template <class Condition>
bool run_until(OstrelEventFilter& filter, Condition done)
{
    return repeat_until(done, [&filter] { filter.processEvents(true); });
}

class Window : public QWidget
{
public:
    Window() : allowed(u"allowed"_s), other(u"other"_s)
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(&allowed);
        column->addWidget(&other);
        column->addWidget(&edit);
        connect(&allowed, &QPushButton::clicked, this, [this] { clicks << u"allowed"_s; });
        connect(&other, &QPushButton::clicked, this, [this] { clicks << u"other"_s; });
        resize(300, 200);
    }

    QPushButton allowed;
    QPushButton other;
    QLineEdit edit;
    QStringList clicks;
};

} // namespace

class TstOstrelEventFilterDisplay : public TestCase
{
    Q_OBJECT

private slots:
    void real_click_is_lost_unless_allowed();
    void real_key_is_lost();
};

void TstOstrelEventFilterDisplay::real_click_is_lost_unless_allowed()
{
    Window window;
    QVERIFY(show_active(&window));
    QVERIFY(real_click(&window.other));
    QTRY_COMPARE(window.clicks, QStringList{u"other"_s}); // the server's clicks do arrive
    window.clicks.clear();

    OstrelEventFilter filter;
    filter.addObject(&window.allowed);
    QVERIFY(real_click(&window.other));
    QVERIFY(real_click(&window.allowed));
    // Clicks arrive in order: when the second is there, the first has come and gone.
    QVERIFY(run_until(filter, [&] { return !window.clicks.isEmpty(); }));
    QCOMPARE(window.clicks, QStringList{u"allowed"_s});

    // A last click, outside any run, ends the list; what was lost stays lost.
    QVERIFY(real_click(&window.allowed));
    QTRY_COMPARE(window.clicks, (QStringList{u"allowed"_s, u"allowed"_s}));
}

void TstOstrelEventFilterDisplay::real_key_is_lost()
{
    Window window;
    QVERIFY(show_active(&window));
    window.edit.setFocus();
    QVERIFY(real_key(u"x"_s));
    QTRY_COMPARE(window.edit.text(), u"x"_s); // the server's keys do arrive

    OstrelEventFilter filter;
    filter.addObject(&window.allowed);
    QVERIFY(real_key(u"y"_s));
    QVERIFY(real_click(&window.allowed));
    QVERIFY(run_until(filter, [&] { return !window.clicks.isEmpty(); }));
    QCOMPARE(window.edit.text(), u"x"_s);

    window.edit.setFocus();
    QVERIFY(real_key(u"z"_s));
    QTRY_COMPARE(window.edit.text(), u"xz"_s);
}

OSTREL_TEST(TstOstrelEventFilterDisplay)

#include "tst_ostreleventfilter_display.moc"
