// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The component "geometry": solids through a CAD kernel and tetrahedral meshes. See docs/geometry.md.

#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/GeometryScene.h"
#include "workbench/components/geometry/programs/program_folder.h"
#include "workbench/components/geometry/window/FileMenuFormats.h"
#include "workbench/components/geometry/window/GeometryFileHandler.h"
#include "workbench/components/geometry/window/GeometryWindow.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <optional>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

namespace {

/** The model as what is kept while it is unsaved, and comes back after a crash. */
UnsavedWork unsaved_model(GeometryDocument& document, GeometryFileHandler& handler)
{
    return {
        .kind = u"model"_s,
        .state =
            [&document] { return document.is_modified() ? std::optional(document.changes()) : std::nullopt; },
        .file = [&document] { return document.file().isEmpty() ? document.earlier_file() : document.file(); },
        .take = [&document] { return document.contents(); },
        .restore = [&handler](const QByteArray& bytes, const QString& file) -> QString {
            try {
                handler.recover(bytes, file);
                return {};
            } catch (const GeometryError& error) {
                return error.message();
            }
        }};
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    const ApplicationServices& application = Fennar::instance().application();
    auto& model = context.make<GeometryModel>();
    auto& document = context.make<GeometryDocument>(model);
    Ostrel* const window = context.window();
    auto& handler = context.make<GeometryFileHandler>(window, document);
    QPointer<FileMenuFormats> formats = window ? &context.make<FileMenuFormats>(context) : nullptr;
    context.add_commands([&](CommandRegistry& registry, const QString& owner) {
        const auto imported = [formats](const QString& file, bool done) {
            if (formats)
                formats->imported(file, done);
        };
        return register_geometry_commands(registry, owner,
                                          {model, application, program_folder(), imported}) &&
               register_document_commands(registry, owner,
                                          {[&handler](bool discard) { handler.start_new(discard); },
                                           [&handler](const QString& file) { handler.open(file); },
                                           [&handler](const QString& file) { handler.save(file); }});
    });
    context.add_unsaved_work(unsaved_model(document, handler));
    context.make<GeometryScene>(model, Scene::instance());
    if (!window)
        return;
    context.make<GeometryWindow>(context, model);
    context.set_open_save_handler(handler);
}
