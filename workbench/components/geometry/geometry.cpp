// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The component "geometry": solids through a CAD kernel and tetrahedral meshes. See docs/geometry.md.

#include "frame/Ostrel.h"
#include "workbench/components/geometry/commands/document_commands.h"
#include "workbench/components/geometry/commands/file_commands.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/exchange/FileExchange.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/GeometryScene.h"
#include "workbench/components/geometry/window/FileMenuFormats.h"
#include "workbench/components/geometry/window/GeometryFileHandler.h"
#include "workbench/components/geometry/window/GeometryWindow.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>
#include <memory>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

// Not in a namespace, as Qt demands.
static void init_resources()
{
    Q_INIT_RESOURCE(geometry);
}

static void clean_up_resources()
{
    Q_CLEANUP_RESOURCE(geometry);
}

namespace {

std::unique_ptr<GeometryModel> model;
std::unique_ptr<GeometryDocument> document;
std::unique_ptr<FileExchange> exchange;
std::unique_ptr<GeometryScene> scene_part;
std::unique_ptr<GeometryWindow> window_part;
std::unique_ptr<GeometryFileHandler> file_handler;
std::unique_ptr<FileMenuFormats> file_menu_formats;

/** The programs lie in a folder beside this shared object, or beside what a link to it stands for. */
QString program_path(const QString& name)
{
    Dl_info info = {};
    if (!dladdr(&model, &info) || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalPath() + u"/libexec/"_s + name;
}

/** What the commands that open and save do: with a window the same as the file menu. */
DocumentActions document_actions()
{
    return {[](bool discard) { file_handler ? file_handler->start_new(discard) : document->clear(); },
            [](const QString& file) { file_handler ? file_handler->open(file) : document->open(file); },
            [](const QString& file) { file_handler ? file_handler->save(file) : document->save(file); }};
}

/** The model as what is kept while it is unsaved, and comes back after a crash. */
UnsavedWork unsaved_model()
{
    return {
        .kind = u"model"_s,
        .owner = u"geometry"_s,
        .state = [] { return document->is_modified() ? std::optional(document->changes()) : std::nullopt; },
        .file = [] { return document->file().isEmpty() ? document->earlier_file() : document->file(); },
        .take = [] { return document->contents(); },
        .restore = [](const QByteArray& bytes, const QString& file) -> QString {
            try {
                file_handler ? file_handler->recover(bytes, file) : document->recover(bytes, file);
                return {};
            } catch (const GeometryError& error) {
                return error.message();
            }
        }};
}

void unload()
{
    UnsavedWorks::instance().remove_owner(u"geometry"_s);
    file_menu_formats.reset();
    file_handler.reset();
    window_part.reset();
    scene_part.reset();
    Fennar::instance().registry().remove_owner(u"geometry"_s);
    exchange.reset();
    document.reset();
    model.reset();
    clean_up_resources();
}

void load()
{
    Fennar& fennar = Fennar::instance();
    init_resources();
    model = std::make_unique<GeometryModel>();
    document = std::make_unique<GeometryDocument>(*model);
    exchange = std::make_unique<FileExchange>(*model, program_path(u"fennar-converter"_s));
    const auto imported = [](const QString& file, bool done) {
        if (file_menu_formats)
            file_menu_formats->imported(file, done);
    };
    if (!register_geometry_commands(fennar.registry(), *model, fennar.application(),
                                    program_path(u"fennar-mesher"_s)) ||
        !register_document_commands(fennar.registry(), *model, document_actions()) ||
        !register_file_commands(fennar.registry(), *model, *exchange, fennar.application(), imported)) {
        unload();
        throw std::runtime_error("one of the geometry commands is there already");
    }
    UnsavedWorks::instance().add(unsaved_model());
    QObject::connect(document.get(), &GeometryDocument::settled, document.get(),
                     [] { UnsavedWorks::instance().tell_settled(u"model"_s); });
    scene_part =
        std::make_unique<GeometryScene>(*model, Scene::instance(), program_path(u"fennar-tessellator"_s));
    if (Ostrel* window = Ostrel::instance()) {
        window_part = std::make_unique<GeometryWindow>(window, *model);
        file_handler = std::make_unique<GeometryFileHandler>(window, *document);
        file_menu_formats = std::make_unique<FileMenuFormats>(window->file_menu());
    }
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, "geometry", "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
