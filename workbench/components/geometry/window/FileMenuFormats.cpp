// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/FileMenuFormats.h"

#include "files/ImportExportHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/exchange/Format.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** An entry of a dialog, which does something with the file that is chosen. */
class Entry : public ImportExportHandler
{
public:
    Entry(const Format& format, const std::function<void(const QString& file)>& use)
        : ImportExportHandler({}), mUse(use)
    {
        mFilters = format.filter();
    }

    void execute(const QString& file, const QString&) override
    {
        // This object may go meanwhile.
        const auto use = mUse;
        use(file);
    }

private:
    std::function<void(const QString& file)> mUse;
};

} // namespace

FileMenuFormats::FileMenuFormats(const ComponentContext& context) : mEntries(context.name())
{
    build();
    connect(&FormatRegistry::instance(), &FormatRegistry::changed, this, &FileMenuFormats::build);
}

void FileMenuFormats::build()
{
    mEntries.end();
    for (const Format& format : formats()) {
        const QString name = format.name;
        if (format.reads)
            mEntries.add_import(std::make_unique<Entry>(format, [this, name](const QString& file) {
                mChosen.append({QFileInfo(file).absoluteFilePath(), name});
                // The command may let components come and go, and this object with them.
                send_command(import_command(file, name));
            }));
        if (format.writes)
            mEntries.add_export(std::make_unique<Entry>(format, [this, name](const QString& file) {
                if (mQuestion.may_write(Ostrel::instance(), file))
                    send_command(export_command(file, name));
            }));
    }
}

void FileMenuFormats::imported(const QString& file, bool done)
{
    const auto chosen = std::ranges::find(std::as_const(mChosen), file, &Chosen::file);
    if (chosen == mChosen.cend())
        return;
    const QString format = chosen->format;
    mChosen.erase(chosen);
    if (Ostrel* window = mEntries.window(); window && done)
        window->file_menu()->recent_import(recent_import_command(file, format));
}

} // namespace fennar::geometry
