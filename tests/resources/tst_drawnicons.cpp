// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "resources/drawn_icons.h"
#include "resources/load_icon.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QAction>
#include <QImage>
#include <QImageReader>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QImage image(const DrawnIcon& icon)
{
    return QImage(reinterpret_cast<const uchar*>(icon.pixels), icon.side, icon.side,
                  QImage::Format_ARGB32_Premultiplied);
}

bool is_drawn_by_the_build(QImage picture)
{
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(1);
    return std::ranges::any_of(drawn_icons(), [&](const DrawnIcon& icon) { return image(icon) == picture; });
}

/** The buttons with a picture of the shell that a new main window may show. */
QList<QAbstractButton*> buttons(const Ostrel& window)
{
    QList<QAbstractButton*> found;
    const auto* const bar = window.findChild<QToolBar*>(u"FileTools"_s);
    for (QAction* action : bar->actions())
        if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
            button && action->isVisible())
            found << button;
    found << window.statusBar()->findChild<QToolButton*>(u"mCancel"_s);
    for (QPushButton* button : window.findChildren<QPushButton*>())
        if (!button->icon().isNull())
            found << button;
    return found;
}

} // namespace

/** Runs on a screen of one pixel to the point and once more on one of two. */
class TstDrawnIcons : public TestCase
{
    Q_OBJECT

private slots:
    void picture_is_what_the_file_shows();
    void icon_has_the_picture_of_the_build();
    void new_window_needs_no_other_pictures();
};

void TstDrawnIcons::picture_is_what_the_file_shows()
{
    QVERIFY(!drawn_icons().empty());
    for (const DrawnIcon& icon : drawn_icons()) {
        QImageReader reader(u":/ostrelgui/images/light/"_s + QString::fromUtf8(icon.name));
        reader.setScaledSize(QSize(icon.side, icon.side));
        const QImage expected = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QVERIFY2(!expected.isNull(), icon.name);
        QVERIFY2(image(icon) == expected, icon.name);
    }
}

void TstDrawnIcons::icon_has_the_picture_of_the_build()
{
    for (const DrawnIcon& icon : drawn_icons()) {
        const QPixmap shown = load_icon(icon.name).pixmap(QSize(icon.side, icon.side), 1.0);
        QVERIFY2(shown.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied) == image(icon),
                 icon.name);
    }
}

void TstDrawnIcons::new_window_needs_no_other_pictures()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    const QList<QAbstractButton*> shown = buttons(window);
    // The toolbar alone has eight.
    QCOMPARE_GE(shown.size(), 9);
    for (const QAbstractButton* button : shown) {
        QVERIFY(button);
        const QPixmap picture = button->icon().pixmap(button->iconSize(), window.devicePixelRatio());
        QVERIFY2(is_drawn_by_the_build(picture.toImage()), qPrintable(button->toolTip()));
    }
}

OSTREL_TEST(TstDrawnIcons)
#include "tst_drawnicons.moc"
