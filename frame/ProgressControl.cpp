// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/ProgressControl.h"

#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "host/fennar_util/AppUtil.h"
#include "host/fennari19/FennarInterface.h"
#include "resources/load_icon.h"
#include "ui_QtProgressControl.h"

#include <algorithm>

ProgressControl::ProgressControl(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::QtProgressControl>())
{
    ui->setupUi(this);
    ui->mCancel->setIcon(load_icon("cancel.svg", "dcancel.svg", QSize(36, 36)));
    ui->mProgress->reset();
    ui->mCancel->setEnabled(false);
    Ostrel::instance()->mEventFilter->addObject(ui->mCancel);
    connect(ui->mCancel, &QToolButton::clicked, this, &ProgressControl::cancel_progress);
}

ProgressControl::~ProgressControl() = default;

void ProgressControl::start_session(const char* name, bool process)
{
    if (!mSession.isEmpty())
        return;
    mSession = QString::fromUtf8(name);
    ui->mProgress->reset();
    if (process)
        run_waiting_events();
}

void ProgressControl::update_session(const char* name, int percent)
{
    if (QString::fromUtf8(name) != mSession)
        return;
    const int value = std::min(percent, 100);
    if (value == ui->mProgress->value())
        return;
    ui->mProgress->setValue(value);
    run_waiting_events();
}

void ProgressControl::run_waiting_events()
{
    // The filter of the one main window, which may be gone: with what the bar has told, or before a second
    // one.
    if (const Ostrel* const window = Ostrel::instance())
        window->mEventFilter->processEvents(false);
}

void ProgressControl::end_session(const char* name)
{
    // Without a running session an empty name, which equals none, resets the bar as well.
    if (QString::fromUtf8(name) != mSession)
        return;
    mSession.clear();
    ui->mProgress->reset();
}

void ProgressControl::set_format(const QString& format)
{
    ui->mProgress->setFormat(format);
}

void ProgressControl::enable_cancel(bool on)
{
    mCancelCount = on ? mCancelCount + 1 : std::max(mCancelCount - 1, 0);
    if (on || mCancelCount == 0)
        ui->mCancel->setEnabled(on);
}

void ProgressControl::cancel_progress()
{
    FennarInterface::stop_playback();
    FennarInterface::app_util()->set_interrupt(true);
}
