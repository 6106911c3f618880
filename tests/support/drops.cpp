// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/drops.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include <chrono>

using namespace std::chrono_literals;

namespace {

Qt::DropAction drop_data(QWidget* target, const QPoint& position, const QMimeData& data,
                         Qt::DropActions offered, Qt::DropAction proposed)
{
    // No other program can be made to drag here, so the events are made by hand.
    QDragEnterEvent enter(position, offered, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setDropAction(proposed);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop(position, offered, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(proposed);
    drop.ignore();
    if (enter.isAccepted())
        QCoreApplication::sendEvent(target, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

} // namespace

bool drop_text(QWidget* target, const QPoint& position, const QString& text)
{
    QMimeData data;
    data.setText(text);
    const Qt::DropAction done =
        drop_data(target, position, data, Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
    return done != Qt::IgnoreAction;
}

Qt::DropAction drop_files(QWidget* target, const QPoint& position, const QStringList& files,
                          Qt::DropActions offered)
{
    QList<QUrl> urls;
    for (const QString& file : files)
        urls << QUrl::fromLocalFile(file);
    QMimeData data;
    data.setUrls(urls);
    return drop_data(target, position, data, offered, Qt::MoveAction);
}

bool drag_by_mouse(QWidget* widget, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers at_press)
{
    QWindow* window = widget->window()->windowHandle();
    const auto in_window = [&](const QPoint& position) { return widget->mapTo(widget->window(), position); };
    bool dragging = false;
    // The move that begins the drag returns when the drag is over, so the rest is done from within.
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, window, [&] {
        if (!QGuiApplication::overrideCursor())
            return;
        timer.stop();
        dragging = true;
        QTest::mouseMove(window, in_window(to));
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, in_window(to));
    });
    timer.start(5ms);
    QTest::mousePress(window, Qt::LeftButton, at_press, in_window(from));
    QTest::mouseMove(window, in_window(from) + QPoint(QApplication::startDragDistance() + 1, 0));
    if (!dragging)
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, in_window(from));
    return dragging;
}
