// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/SaveQuestion.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

#include <utility>

namespace fennar::geometry {

SaveQuestion::SaveQuestion()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool SaveQuestion::may_write(QWidget* window, const QString& file)
{
    if (std::exchange(mChosen, QString()) == file || !QFileInfo::exists(file))
        return true;
    const QPointer<SaveQuestion> self = this;
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, tr("Replace File"),
                        tr("%1 already exists.\nDo you want to replace it?").arg(QFileInfo(file).fileName()),
                        QMessageBox::Yes | QMessageBox::No, window);
    // A file's name may look like markup.
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(QMessageBox::No);
    const int answer = box->exec();
    const bool answered = box;
    delete box.data();
    return self && answered && answer == QMessageBox::Yes;
}

bool SaveQuestion::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Show)
        return false;
    auto* dialog = qobject_cast<QFileDialog*>(object);
    if (dialog && dialog->acceptMode() == QFileDialog::AcceptSave) {
        mChosen.clear();
        connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) { mChosen = file; });
    }
    return false;
}

} // namespace fennar::geometry
