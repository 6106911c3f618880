// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Camera.h"
#include "workbench/components/graphics/Picture.h"

#include <QObject>

namespace fennar::graphics {

/** What the commands change and the view shows: the camera and what is displayed. It needs no window. */
class GraphicsState : public QObject
{
    Q_OBJECT

public:
    /** @param scene  must outlive this object. */
    explicit GraphicsState(Scene& scene) : mScene(scene) {}

    Scene& scene() const { return mScene; }
    const Camera& camera() const { return mCamera; }
    /** Null changes do not count. */
    void set_camera(const Camera& camera);
    const DisplayOptions& display() const { return mDisplay; }
    void set_display(const DisplayOptions& display);
    /** Whether pictures are drawn by OpenGL. Kept by the view; false while there is none. */
    bool has_opengl() const { return mHasOpenGl; }
    void set_has_opengl(bool has) { mHasOpenGl = has; }

    /** Turns to a standard view and shows all of the scene. */
    void set_view(Camera::View view);
    /** Shows all of the scene. */
    void fit();

signals:
    void camera_changed();
    void display_changed();

private:
    Scene& mScene;
    Camera mCamera;
    DisplayOptions mDisplay;
    bool mHasOpenGl = false;
};

} // namespace fennar::graphics
