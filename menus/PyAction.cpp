// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/PyAction.h"

#include "frame/Ostrel.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/ostrelfw/Framework.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace {

void run_call(const QString& method, const QString& arguments)
{
    // Made first: who asks for Python may lead it to delete the action.
    const QByteArray call = method.isEmpty() ? QByteArray() : (method + u'(' + arguments + u')').toUtf8();
    FennarPythonInterpreter* const python = Framework::user_python_interpreter();
    if (python && python->IsInitialized() && !call.isEmpty())
        python->Run_SimpleString(call.constData());
}

// The text is gone when this returns; see the class.
const char* released_text(const QString& text)
{
    return text.toUtf8().constData(); // clazy:exclude=returning-data-from-temporary
}

} // namespace

PyAction::PyAction() : QObject(nullptr), mAction(new QAction(Ostrel::instance()))
{
    setObjectName(u"PyAction"_s);
    connect(mAction, &QAction::triggered, this, &PyAction::actionActivated);
    connect(mAction, &QAction::toggled, this, &PyAction::actionToggled);
}

PyAction::~PyAction()
{
    delete mAction;
}

void PyAction::setText(const char* text)
{
    if (mAction)
        mAction->setText(QString::fromUtf8(text));
}

void PyAction::setMenuText(const char* text)
{
    setText(text);
}

void PyAction::setToolTip(const char* text)
{
    if (mAction)
        mAction->setToolTip(QString::fromUtf8(text));
}

void PyAction::setStatusTip(const char* text)
{
    if (mAction)
        mAction->setStatusTip(QString::fromUtf8(text));
}

void PyAction::setWhatsThis(const char* text)
{
    if (mAction)
        mAction->setWhatsThis(QString::fromUtf8(text));
}

const char* PyAction::getText() const
{
    return released_text(mAction ? mAction->text() : QString());
}

const char* PyAction::getMenuText() const
{
    return getText();
}

const char* PyAction::getToolTip() const
{
    return released_text(mAction ? mAction->toolTip() : QString());
}

const char* PyAction::getStatusTip() const
{
    return released_text(mAction ? mAction->statusTip() : QString());
}

const char* PyAction::getWhatsThis() const
{
    return released_text(mAction ? mAction->whatsThis() : QString());
}

void PyAction::setToggleAction(bool on)
{
    if (mAction)
        mAction->setCheckable(on);
}

void PyAction::setOn(bool on)
{
    if (mAction)
        mAction->setChecked(on);
}

void PyAction::setEnabled(bool on)
{
    if (mAction)
        mAction->setEnabled(on);
}

void PyAction::setVisible(bool on)
{
    if (mAction)
        mAction->setVisible(on);
}

bool PyAction::hasToggleAction() const
{
    return mAction && mAction->isCheckable();
}

bool PyAction::isOn() const
{
    return mAction && mAction->isChecked();
}

bool PyAction::isEnabled() const
{
    return mAction && mAction->isEnabled();
}

bool PyAction::isVisible() const
{
    return mAction && mAction->isVisible();
}

void PyAction::setActivateMethod(const char* method)
{
    mActivateMethod = QString::fromUtf8(method);
}

void PyAction::setToggleMethod(const char* method)
{
    mToggleMethod = QString::fromUtf8(method);
}

QAction* PyAction::getAction() const
{
    return mAction;
}

void PyAction::actionActivated()
{
    run_call(mActivateMethod, QString());
}

void PyAction::actionToggled(bool on)
{
    run_call(mToggleMethod, on ? u"1"_s : u"0"_s);
}
