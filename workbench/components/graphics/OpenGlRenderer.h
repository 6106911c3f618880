// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Picture.h"

#include <memory>

namespace fennar::graphics {

/**
 * Draws by OpenGL, or OpenGL ES 2, into a buffer off the screen whose content is handed over as an image.
 *
 * So the main window stays one that is painted the plain way, whether this component is loaded or not: with a
 * widget of OpenGL in it Qt would make the native window anew, and would put all of it together by OpenGL
 * from then on.
 */
class OpenGlRenderer
{
public:
    /** Null if the platform offers no context or the context lacks what is needed. */
    static std::unique_ptr<OpenGlRenderer> create();
    ~OpenGlRenderer();
    Q_DISABLE_COPY_MOVE(OpenGlRenderer)

    /** The picture in front of a transparent background, with the picture's ratio set; null if it fails. */
    QImage render(const Picture& picture);
    /** What draws, as the driver calls itself. */
    QString device() const;

private:
    struct Device;
    explicit OpenGlRenderer(std::unique_ptr<Device> device);

    std::unique_ptr<Device> mDevice;
};

} // namespace fennar::graphics
