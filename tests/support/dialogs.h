// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <utility>

/**
 * Meets the modal dialogs that open while it lives: to be made, and told what to expect, before what opens
 * them, which may block until they are closed.
 *
 * The expectations form a queue: each dialog that comes must be the one that the first of them names, whose
 * action is then called once from the event loop. A dialog that its action opens is just the next
 * expectation. An action must close its dialog; one that is meant to stay open (after the answer No to
 * "overwrite?") is expected once more. Any other dialog is dismissed, so that no test hangs.
 *
 * Actions record what they see and leave the comparing to the test. finish(), or else the end of the driver,
 * fails the test if a dialog did not come, came unexpectedly, or was left open.
 *
 *     DialogDriver driver;
 *     driver.expect<QFileDialog>([&](QFileDialog* dialog) {
 *         asked = file_question(dialog);
 *         choose(dialog, path);
 *     });
 *     driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
 *     menu.file_save_as();
 *     QVERIFY(driver.finish());
 */
class DialogDriver : public QObject
{
    Q_OBJECT

public:
    using Act = std::function<void(QWidget*)>;

    DialogDriver();
    ~DialogDriver() override;

    /** Expects a dialog that has @p name as its object name, or as the name of its class or of one of its
     * base classes. */
    void expect(const QString& name, Act act);
    /** Expects a dialog of the type @p Dialog. */
    template <class Dialog>
    void expect(std::function<void(Dialog*)> act)
    {
        expect(QString::fromUtf8(Dialog::staticMetaObject.className()),
               [act = std::move(act)](QWidget* dialog) { act(qobject_cast<Dialog*>(dialog)); });
    }

    /** All dialogs that came so far, as "class: title: text". */
    QStringList seen() const { return mSeen; }
    /** Ends the watch, and fails the test if not all went as expected. Returns whether it did. */
    [[nodiscard]] bool finish();

private:
    struct Expectation
    {
        QString name;
        Act act;
    };

    bool eventFilter(QObject* object, QEvent* event) override;
    void look();
    void meet(const QPointer<QWidget>& dialog);
    void dismiss(const QPointer<QWidget>& dialog, const QString& reason);
    bool is_expected(const QWidget* dialog) const;

    QList<Expectation> mExpectations;
    QList<QPointer<QWidget>> mMet;
    QStringList mSeen;
    QStringList mProblems;
    QTimer mTimer;
    bool mFinished = false;
};

/** Presses the standard button of a dialog that has a button box, as message boxes and file dialogs do. A
 * button that is missing, hidden or disabled fails the test. */
DialogDriver::Act press(QDialogButtonBox::StandardButton button);
/** Presses the button with the given object name; one that is missing, hidden or disabled fails the test. */
DialogDriver::Act press(const QString& name);
/** Sends a key to what has the focus in the dialog, or to the dialog. */
DialogDriver::Act press_key(Qt::Key key);
/** Closes the dialog as the window's close box does. */
DialogDriver::Act press_close_box();

/** What a file dialog asks. */
struct FileQuestion
{
    QString caption;
    /** Without a separator at its end. */
    QString directory;
    QStringList filters;
    QString selected_filter;
    /** What stands in the field for the name. */
    QString name;
    QFileDialog::AcceptMode accept_mode;
    QFileDialog::FileMode file_mode;
    bool directories_only;
};

FileQuestion file_question(const QFileDialog* dialog);

/**
 * Answers a file dialog as a user does: types @p path, which should be absolute, and presses the button that
 * accepts it. A button that is disabled fails the test.
 *
 * @param filter  is chosen before, unless it is empty; one that is not offered fails the test.
 */
void choose(QFileDialog* dialog, const QString& path, const QString& filter = QString());

/**
 * As choose(), but with Return in the field for the name instead of the button: the button stays disabled for
 * a file that the list of the dialog does not show, be it that its filter has only just been chosen.
 */
void choose_with_return(QFileDialog* dialog, const QString& path, const QString& filter = QString());
