// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/HelpAboutOstrel.h"

#include "frame/Alive.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/ostrelfw/Framework.h"
#include "ui_QtHelpAboutOstrel.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QPixmap>

#include <utility>

using namespace Qt::StringLiterals;

HelpAboutOstrel::HelpAboutOstrel(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::QtHelpAboutOstrel>())
{
    ui->setupUi(this);

    FennarPythonInterpreter* const python = Framework::python_interpreter();
    ui->mOstrel3rdParty->setText(tr("%1 includes:\n").arg(QCoreApplication::applicationName()) +
                                 tr("Qt %1").arg(QString::fromLatin1(qVersion())) +
                                 tr(" by The Qt Company\n") +
                                 tr("Python %1.%2.%3 (www.python.org)")
                                     .arg(python->version_major())
                                     .arg(python->version_minor())
                                     .arg(python->version_micro()));
    connect(ui->mOkButton, &QPushButton::clicked, this, &HelpAboutOstrel::close);
}

HelpAboutOstrel::~HelpAboutOstrel() = default;

void HelpAboutOstrel::setIconPath(QString path)
{
    mIconPath = std::move(path);
}

void HelpAboutOstrel::setProductName(QString name)
{
    mProductName = std::move(name);
}

void HelpAboutOstrel::setProductInfo(QString info)
{
    mProductInfo = std::move(info);
}

void HelpAboutOstrel::add_about(QWidget* widget)
{
    if (!widget)
        return;
    auto* layout = qobject_cast<QBoxLayout*>(ui->mAboutFrame->layout());
    // One that is there already would otherwise shift what the index counts.
    layout->removeWidget(widget);
    const Alive alive(this, widget);
    layout->insertWidget(layout->count() - 2, widget);
    if (alive && isVisible())
        widget->show();
}

void HelpAboutOstrel::remove_about(QWidget* widget)
{
    if (!widget || widget->parent() != ui->mAboutFrame)
        return;
    ui->mAboutFrame->layout()->removeWidget(widget);
    widget->hide();
}

void HelpAboutOstrel::finish_populating_dialog()
{
    // The closing tag lacks its digit; Qt ends the heading all the same.
    ui->mProductNameLabel->setText(u"<h1>"_s + mProductName + u"</h>"_s);
    ui->mProductInfoLabel->setText(u"<b>"_s + mProductInfo + u"</b>"_s);
    if (mIconPath.isEmpty())
        return;
    const bool complete = mIconPath.contains(u"fennargui"_s);
    const QString path = complete ? mIconPath : QCoreApplication::applicationDirPath() + u'/' + mIconPath;
    ui->mProductIconLabel->setPixmap(QPixmap(path));
}
