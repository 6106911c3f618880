// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/GraphicsState.h"

namespace fennar::graphics {

void GraphicsState::set_camera(const Camera& camera)
{
    if (camera == mCamera)
        return;
    mCamera = camera;
    emit camera_changed();
}

void GraphicsState::set_display(const DisplayOptions& display)
{
    if (display == mDisplay)
        return;
    mDisplay = display;
    emit display_changed();
}

void GraphicsState::set_view(Camera::View view)
{
    Camera camera = mCamera;
    camera.set_view(view);
    camera.fit(mScene.box());
    set_camera(camera);
}

void GraphicsState::fit()
{
    Camera camera = mCamera;
    camera.fit(mScene.box());
    set_camera(camera);
}

} // namespace fennar::graphics
