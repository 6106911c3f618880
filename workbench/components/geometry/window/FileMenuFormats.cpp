// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/FileMenuFormats.h"

#include "files/ImportExportHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "workbench/components/geometry/commands/file_commands.h"
#include "workbench/components/geometry/exchange/Format.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

class FileMenuFormats::Importer : public ImportExportHandler
{
public:
    Importer(FileMenuFormats& formats, const Format& format)
        : ImportExportHandler({}), mFormats(formats), mFormat(format.name)
    {
        mFilters = format.filter();
    }

    void execute(const QString& file, const QString&) override
    {
        mFormats.mChosen.append({QFileInfo(file).absoluteFilePath(), mFormat});
        // The command may let components come and go, and this object with them.
        send_command(import_command(file, mFormat));
    }

private:
    FileMenuFormats& mFormats;
    QString mFormat;
};

class FileMenuFormats::Exporter : public ImportExportHandler
{
public:
    Exporter(SaveQuestion& question, const Format& format)
        : ImportExportHandler({}), mQuestion(question), mFormat(format.name)
    {
        mFilters = format.filter();
    }

    void execute(const QString& file, const QString&) override
    {
        // This object may go while the question is open.
        const QString command = export_command(file, mFormat);
        if (mQuestion.may_write(Ostrel::instance(), file))
            send_command(command);
    }

private:
    SaveQuestion& mQuestion;
    QString mFormat;
};

FileMenuFormats::FileMenuFormats(const ComponentContext& context) : mEntries(context.name())
{
    build();
    connect(&FormatRegistry::instance(), &FormatRegistry::changed, this, &FileMenuFormats::build);
}

void FileMenuFormats::build()
{
    mEntries.end();
    for (const Format& format : formats()) {
        if (format.reads)
            mEntries.add_import(std::make_unique<Importer>(*this, format));
        if (format.writes)
            mEntries.add_export(std::make_unique<Exporter>(mQuestion, format));
    }
}

void FileMenuFormats::imported(const QString& file, bool done)
{
    const auto chosen = std::find_if(mChosen.cbegin(), mChosen.cend(),
                                     [&file](const Chosen& candidate) { return candidate.file == file; });
    if (chosen == mChosen.cend())
        return;
    const QString format = chosen->format;
    mChosen.erase(chosen);
    if (Ostrel* window = mEntries.window(); window && done)
        window->file_menu()->recent_import(recent_import_command(file, format));
}

} // namespace fennar::geometry
