// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/LongWork.h"

#include "host/ostrelfw/OstrelGUI.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandCall.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

LongWork::LongWork(CommandCall& call, const ApplicationServices& services, const char* title, bool verbose)
    : mCall(call), mServices(services), mTitle(title), mVerbose(verbose)
{
    if (mServices.shell)
        mServices.shell->start_progress_session(mTitle, 1);
}

LongWork::~LongWork()
{
    if (!mServices.shell)
        return;
    mServices.shell->set_status_text(nullptr);
    mServices.shell->end_progress_session(mTitle);
}

MesherListener LongWork::listener()
{
    return {.progress = [this](int percent, const QString& stage) { show(percent, stage); },
            .message = [this](const MesherReport::Message& message) { print(message); },
            .go_on = [this] { return go_on(); }};
}

bool LongWork::go_on()
{
    if (mServices.turn)
        mServices.turn();
    return !mCall.interrupted();
}

void LongWork::show(int percent, const QString& stage)
{
    if (!mServices.shell)
        return;
    if (!stage.isEmpty()) {
        const QString text = QCoreApplication::translate("MesherReport", stage.toUtf8().constData()) + u' ';
        mServices.shell->set_status_text(text.toUtf8().constData());
    }
    mServices.shell->update_progress_session(mTitle, percent);
}

void LongWork::print(const MesherReport::Message& message)
{
    using Kind = MesherReport::Message::Kind;
    if (message.kind == Kind::Information && !mVerbose)
        return;
    if (message.kind == Kind::Error) {
        // The engine tells an error where it meets it, and once more when it gives up. The last one ends up
        // in the command's own error.
        if (message.text == mLastError)
            return;
        mLastError = message.text;
    }
    const QString mark = message.kind == Kind::Error     ? u"Error: "_s
                         : message.kind == Kind::Warning ? u"Warning: "_s
                                                         : QString();
    mCall.print(mark + message.text + u'\n');
}

} // namespace fennar::geometry
