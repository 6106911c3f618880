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
    MesherListener listener;
    listener.progress = [this](int percent, const QString& stage) { show(percent, stage); };
    listener.message = [this](const MesherReport::Message& message) { print(message); };
    listener.go_on = [this] { return go_on(); };
    return listener;
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
    // The engine tells an error where it meets it, and once more when it gives up.
    if (message.kind == MesherReport::Message::Kind::Error && message.text == mLastError)
        return;
    switch (message.kind) {
    case MesherReport::Message::Kind::Information:
        if (mVerbose)
            mCall.print(message.text + u'\n');
        break;
    case MesherReport::Message::Kind::Warning:
        mCall.print(u"Warning: "_s + message.text + u'\n');
        break;
    case MesherReport::Message::Kind::Error: // the last one ends up in the command's own error
        mLastError = message.text;
        mCall.print(u"Error: "_s + message.text + u'\n');
        break;
    }
}

} // namespace fennar::geometry
