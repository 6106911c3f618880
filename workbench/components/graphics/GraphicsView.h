// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/GraphicsState.h"

#include <QPointF>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace fennar::graphics {

class OpenGlRenderer;

/**
 * Shows the scene.
 *
 * Left button: orbit, or select what is clicked; with Ctrl or Shift a click adds to the selection or takes
 * away. Middle button: pan. Wheel: zoom at the cursor. With the focus, which Tab or a click gives: arrows
 * orbit, with Shift pan, "+" and "-" zoom.
 *
 * Pictures are drawn when the widget is painted and something has changed, and are kept until then.
 */
class GraphicsView : public QWidget
{
    Q_OBJECT

public:
    /** @param state  must outlive the view. */
    explicit GraphicsView(GraphicsState& state, QWidget* parent = nullptr);
    ~GraphicsView() override;

    QSize sizeHint() const override { return {640, 480}; }

signals:
    /** The user has clicked: what he wants selected, as a command line. */
    void command_wanted(const QString& line);
    /** A picture was made, which happens only when something has changed. */
    void picture_made();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void draw_anew();
    void scene_changed();
    void move_camera(const Camera& camera);
    void click(const QPointF& pixel, bool add);
    void update_image();
    void paint_axes(QPainter& painter) const;

    GraphicsState& mState;
    /** Null where the painter draws. */
    std::unique_ptr<OpenGlRenderer> mOpenGl;
    QImage mImage;
    /** Whether the image is out of date. */
    bool mDirty = true;
    bool mDisplayChanged = true;
    /** The user has not chosen a place to look at; what comes is brought into sight. */
    bool mFollow = true;
    /** A picture that was made in haste is followed by a smooth one when the hand rests. */
    QTimer mSmooth;
    bool mMoving = false;
    QPointF mPressed;
    QPointF mLast;
    bool mDragged = false;
};

} // namespace fennar::graphics
