// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString describe(const QWidget* dialog)
{
    QStringList texts;
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog)) {
        texts << box->text();
    } else {
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty())
                texts << label->text();
        }
    }
    const QString name = QString::fromUtf8(dialog->metaObject()->className());
    return name + u": "_s + dialog->windowTitle() + u": "_s + texts.join(u", "_s);
}

void fail(const QString& reason)
{
    QTest::qFail(qPrintable(reason), __FILE__, __LINE__);
}

void click(QAbstractButton* button, const QString& name, const QWidget* dialog)
{
    if (!button || !button->isVisible() || !button->isEnabled())
        fail(u"no button "_s + name + u" to press in "_s + describe(dialog));
    else
        button->click();
}

bool fill_in(QFileDialog* dialog, const QString& path, const QString& filter)
{
    if (!filter.isEmpty()) {
        if (!dialog->nameFilters().contains(filter)) {
            fail(u"no filter "_s + filter + u" among "_s + dialog->nameFilters().join(u", "_s));
            return false;
        }
        dialog->selectNameFilter(filter);
    }
    // A name set before may have selected its row, which counts for more than the text.
    dialog->findChild<QListView*>(u"listView"_s)->clearSelection();
    dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path);
    return true;
}

} // namespace

DialogDriver::DialogDriver()
{
    connect(&mTimer, &QTimer::timeout, this, &DialogDriver::look);
    mTimer.start(5ms);
}

DialogDriver::~DialogDriver()
{
    if (!mFinished)
        static_cast<void>(finish());
}

void DialogDriver::expect(const QString& name, Act act)
{
    mExpectations << Expectation{name, std::move(act)};
}

bool DialogDriver::finish()
{
    mFinished = true;
    mTimer.stop();
    // One that does not block whoever opened it may not have been noticed yet.
    while (const QPointer<QWidget> dialog = QApplication::activeModalWidget())
        dismiss(dialog, u"unexpected: "_s);
    for (const Expectation& expectation : std::as_const(mExpectations))
        mProblems << u"did not come: "_s + expectation.name;
    if (!mProblems.isEmpty())
        fail(u"dialogs: "_s + mProblems.join(u"; "_s));
    return mProblems.isEmpty();
}

void DialogDriver::look()
{
    mMet.removeIf([](const QPointer<QWidget>& dialog) { return dialog.isNull(); });
    const QPointer<QWidget> dialog = QApplication::activeModalWidget();
    if (!dialog || mMet.contains(dialog))
        return;
    mMet << dialog;
    dialog->installEventFilter(this);
    mSeen << describe(dialog);
    // Queued, so that this timer's slot has returned when the action opens something else.
    QMetaObject::invokeMethod(
        this, [this, dialog] { meet(dialog); }, Qt::QueuedConnection);
}

// A dialog that is hidden counts as new when it is shown again.
bool DialogDriver::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Hide) {
        object->removeEventFilter(this);
        mMet.removeIf([object](const QPointer<QWidget>& dialog) { return dialog == object; });
    }
    return false;
}

void DialogDriver::meet(const QPointer<QWidget>& dialog)
{
    if (!dialog || !dialog->isVisible())
        return;
    if (!is_expected(dialog)) {
        dismiss(dialog, u"unexpected: "_s);
        return;
    }
    const Expectation expectation = mExpectations.takeFirst();
    expectation.act(dialog);
    if (!dialog || !dialog->isVisible())
        return;
    if (!is_expected(dialog)) {
        dismiss(dialog, u"left open: "_s);
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, dialog] { meet(dialog); }, Qt::QueuedConnection);
}

void DialogDriver::dismiss(const QPointer<QWidget>& dialog, const QString& reason)
{
    mProblems << reason + describe(dialog);
    if (auto* with_buttons = qobject_cast<QDialog*>(dialog))
        with_buttons->reject();
    else
        dialog->close();
    if (dialog && dialog->isVisible())
        dialog->hide();
}

bool DialogDriver::is_expected(const QWidget* dialog) const
{
    if (mExpectations.isEmpty())
        return false;
    const QString name = mExpectations.constFirst().name;
    return dialog->objectName() == name || dialog->inherits(name.toUtf8().constData());
}

DialogDriver::Act press(QDialogButtonBox::StandardButton button)
{
    return [button](QWidget* dialog) {
        const auto* box = dialog->findChild<QDialogButtonBox*>();
        click(box ? box->button(button) : nullptr, QString::number(button), dialog);
    };
}

DialogDriver::Act press(const QString& name)
{
    return [name](QWidget* dialog) { click(dialog->findChild<QAbstractButton*>(name), name, dialog); };
}

DialogDriver::Act press_key(Qt::Key key)
{
    return [key](QWidget* dialog) {
        QWidget* focus = dialog->focusWidget();
        QTest::keyClick(focus ? focus : dialog, key);
    };
}

DialogDriver::Act press_close_box()
{
    return [](QWidget* dialog) { dialog->close(); };
}

FileQuestion file_question(const QFileDialog* dialog)
{
    return {dialog->windowTitle(),
            dialog->directory().absolutePath(),
            dialog->nameFilters(),
            dialog->selectedNameFilter(),
            dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->text(),
            dialog->acceptMode(),
            dialog->fileMode(),
            dialog->testOption(QFileDialog::ShowDirsOnly)};
}

void choose(QFileDialog* dialog, const QString& path, const QString& filter)
{
    if (!fill_in(dialog, path, filter))
        return;
    const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
    press(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)(dialog);
}

void choose_with_return(QFileDialog* dialog, const QString& path, const QString& filter)
{
    if (fill_in(dialog, path, filter))
        QTest::keyClick(dialog->findChild<QLineEdit*>(u"fileNameEdit"_s), Qt::Key_Return);
}
