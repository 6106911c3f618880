// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/python/draw_picture.h"

#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QBuffer>
#include <QEventLoop>
#include <QImage>
#include <QScopeGuard>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** How often it is looked whether all is there, in milliseconds. */
constexpr int patience = 5;

/** Waits for the shapes that are still to come. */
void wait_for(const Scene& scene)
{
    if (!scene.is_awaited())
        return;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (const auto& turn = Fennar::instance().application().turn)
            turn();
        if (!scene.is_awaited() || interrupt_requested())
            loop.quit();
    });
    look.start(patience);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (interrupt_requested())
        throw CommandError(u"interrupted"_s);
}

/** What of the scene is in the picture. */
void take_items(const Scene& from, const PythonPicture& picture, Scene& to)
{
    for (const auto& [id, item] : from.items()) {
        if (!picture.names.isEmpty() && !picture.names.contains(item.name))
            continue;
        if (picture.mesh == PythonPicture::Mesh::Only && !item.mesh)
            continue;
        const int copy = to.add(item.name);
        to.set_shape(copy, item.shape);
        if (picture.mesh != PythonPicture::Mesh::None)
            to.set_mesh(copy, item.mesh);
    }
}

} // namespace

QByteArray draw_picture(const PythonPicture& picture)
{
    Scene& scene = Scene::instance();
    if (!scene.painter())
        throw CommandError(u"there is no component that draws pictures"_s);
    for (const QString& name : picture.names) {
        if (scene.find(name) == 0) {
            const QString remedy = Fennar::instance().registry().entities().remedy(u"solid"_s, name);
            throw CommandError::expected(u"a solid"_s, CommandError::shown(name, name.size()), 0, remedy);
        }
    }
    const InterruptScope scope;
    // Shapes are made while somebody looks.
    scene.add_viewer();
    const auto leave = qScopeGuard([&scene] { scene.remove_viewer(); });
    wait_for(scene);
    Scene shown;
    take_items(scene, picture, shown);
    if (picture.mesh == PythonPicture::Mesh::Only && shown.items().empty())
        throw CommandError(
            u"there is nothing to see of the mesh: the solids that it was made of have changed"_s);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    if (!scene.painter()(shown, picture.size).save(&file, "PNG"))
        throw CommandError(u"the picture could not be drawn"_s);
    return file.data();
}

} // namespace fennar
