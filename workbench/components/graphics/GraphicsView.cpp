// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/GraphicsView.h"

#include "workbench/components/graphics/OpenGlRenderer.h"
#include "workbench/components/graphics/paint_picture.h"
#include "workbench/components/graphics/pick.h"

#include <QApplication>
#include <QHash>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace fennar::graphics {

namespace {

/** How long, in milliseconds, the hand rests before the picture is made smooth. */
constexpr int smooth_delay = 200;
/** How much one step of the wheel makes larger. */
constexpr double wheel_factor = 1.2;
constexpr double wheel_step = 120;
/** What a press of a key does, in pixels. */
constexpr double key_step = 20;

} // namespace

GraphicsView::GraphicsView(GraphicsState& state, QWidget* parent) : QWidget(parent), mState(state)
{
    setObjectName(u"GraphicsView"_s);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(5, 5);
    setAccessibleName(tr("Graphics"));
    mSmooth.setSingleShot(true);
    mSmooth.setInterval(smooth_delay);
    connect(&mSmooth, &QTimer::timeout, this, [this] {
        mMoving = false;
        draw_anew();
    });
    Scene& scene = state.scene();
    connect(&scene, &Scene::item_changed, this, &GraphicsView::scene_changed);
    connect(&scene, &Scene::selection_changed, this, &GraphicsView::draw_anew);
    connect(&state, &GraphicsState::camera_changed, this, [this] {
        mFollow = true; // unless move_camera() says otherwise
        draw_anew();
    });
    connect(&state, &GraphicsState::display_changed, this, [this] {
        mDisplayChanged = true;
        draw_anew();
    });
    scene.add_viewer();
}

GraphicsView::~GraphicsView()
{
    mState.set_has_opengl(false);
    mState.scene().remove_viewer();
}

bool GraphicsView::event(QEvent* event)
{
    // ScreenChangeInternal: moved to a screen of another resolution.
    if (event->type() == QEvent::ScreenChangeInternal || event->type() == QEvent::PaletteChange)
        draw_anew();
    return QWidget::event(event);
}

void GraphicsView::resizeEvent(QResizeEvent*)
{
    Camera camera = mState.camera();
    camera.set_viewport(size());
    const bool follow = mFollow;
    if (follow)
        camera.fit(mState.scene().box());
    mState.set_camera(camera); // which draws anew if the size is another
    mFollow = follow;
}

void GraphicsView::paintEvent(QPaintEvent*)
{
    update_image();
    QPainter painter(this);
    ViewColors::fitting(palette()).paint_background(painter, rect());
    painter.drawImage(QPointF(0, 0), mImage);
    paint_axes(painter);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void GraphicsView::mousePressEvent(QMouseEvent* event)
{
    mPressed = mLast = event->position();
    mDragged = false;
}

void GraphicsView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF step = event->position() - mLast;
    if ((event->position() - mPressed).manhattanLength() >= QApplication::startDragDistance())
        mDragged = true;
    if (!mDragged)
        return;
    mLast = event->position();
    Camera camera = mState.camera();
    if (event->buttons() & Qt::LeftButton)
        camera.orbit(step);
    else if (event->buttons() & Qt::MiddleButton)
        camera.pan(step);
    else
        return;
    move_camera(camera);
}

void GraphicsView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !mDragged)
        click(event->position(), event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
}

void GraphicsView::wheelEvent(QWheelEvent* event)
{
    Camera camera = mState.camera();
    camera.zoom(std::pow(wheel_factor, event->angleDelta().y() / wheel_step), event->position());
    move_camera(camera);
    event->accept();
}

void GraphicsView::keyPressEvent(QKeyEvent* event)
{
    Camera camera = mState.camera();
    const QPointF middle = QRectF(rect()).center();
    static const QHash<int, QPointF> steps{
        {Qt::Key_Left, {-1, 0}}, {Qt::Key_Right, {1, 0}}, {Qt::Key_Up, {0, -1}}, {Qt::Key_Down, {0, 1}}};
    const QPointF pixels = steps.value(event->key()) * key_step;
    if (event->key() == Qt::Key_Plus)
        camera.zoom(wheel_factor, middle);
    else if (event->key() == Qt::Key_Minus)
        camera.zoom(1 / wheel_factor, middle);
    else if (pixels.isNull())
        return QWidget::keyPressEvent(event);
    else if (event->modifiers() & Qt::ShiftModifier)
        camera.pan(pixels);
    else
        camera.orbit(pixels);
    move_camera(camera);
}

void GraphicsView::draw_anew()
{
    mDirty = true;
    update();
}

/** Brings what is new into sight, unless the user has chosen what he looks at. */
void GraphicsView::scene_changed()
{
    const Box3 box = mState.scene().box();
    if (mFollow && !mState.camera().contains(box))
        mState.fit();
    draw_anew();
}

/** Moves the camera for the user, whose choice stands until the next command for the view. */
void GraphicsView::move_camera(const Camera& camera)
{
    mMoving = true;
    mSmooth.start();
    mState.set_camera(camera);
    mFollow = false;
}

void GraphicsView::click(const QPointF& pixel, bool add)
{
    const Scene& scene = mState.scene();
    const int hit = pick(scene, mState.camera(), mState.display(), pixel);
    QStringList names = add ? scene.selection() : QStringList();
    if (hit != 0) {
        const QString name = scene.items().at(hit).name;
        if (names.removeAll(name) == 0)
            names << name;
    }
    if (names != scene.selection())
        emit command_wanted(u"select "_s + (names.isEmpty() ? u"none"_s : names.join(u' ')));
}

void GraphicsView::update_image()
{
    const double ratio = devicePixelRatioF();
    if (!mDirty && mImage.devicePixelRatio() == ratio)
        return;
    const bool wants_opengl = mState.display().opengl;
    if (std::exchange(mDisplayChanged, false) && wants_opengl != bool(mOpenGl))
        mOpenGl = wants_opengl ? OpenGlRenderer::create() : nullptr;
    const Picture picture{mState.scene(), mState.camera(), mState.display(), ViewColors::fitting(palette()),
                          ratio,          mMoving};
    mImage = mOpenGl ? mOpenGl->render(picture) : QImage();
    if (mImage.isNull()) {
        // Without OpenGL, with a driver that gives up, or for a picture too large for it.
        mOpenGl.reset();
        mImage = paint_picture(picture);
    }
    mState.set_has_opengl(bool(mOpenGl));
    mDirty = false;
    emit picture_made();
}

/** The directions of the axes, in the lower left corner. */
void GraphicsView::paint_axes(QPainter& painter) const
{
    constexpr double reach = 30;
    if (width() < 5 * reach || height() < 5 * reach)
        return;
    struct Axis
    {
        Point3 direction;
        QColor color;
        QString name;
    };
    const Camera& camera = mState.camera();
    std::array<Axis, 3> axes = {{
        {camera.turned({1, 0, 0}), QColor(0xdc, 0x4f, 0x48), u"x"_s},
        {camera.turned({0, 1, 0}), QColor(0x2c, 0x9a, 0x58), u"y"_s},
        {camera.turned({0, 0, 1}), QColor(0x3a, 0x80, 0xd2), u"z"_s},
    }};
    // The nearest one comes last.
    std::sort(axes.begin(), axes.end(),
              [](const Axis& a, const Axis& b) { return a.direction.z < b.direction.z; });
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(reach * 1.6, height() - reach * 1.6);
    for (const Axis& axis : axes) {
        const QPointF way(axis.direction.x, -axis.direction.y);
        painter.setPen(QPen(axis.color, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(middle, middle + way * reach);
        // An axis that points at the viewer has its letter beside it.
        const QPointF place =
            middle + (QPointF(way).manhattanLength() < 0.1 ? QPointF(-9, 9) : way * (reach + 9));
        painter.drawText(QRectF(place - QPointF(10, 10), QSizeF(20, 20)), Qt::AlignCenter, axis.name);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

} // namespace fennar::graphics
