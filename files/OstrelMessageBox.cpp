// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/OstrelMessageBox.h"

#include <QMessageBox>
#include <QPixmap>
#include <QPointer>

namespace {

QPixmap standard_icon(QMessageBox::Icon icon)
{
    QMessageBox box;
    box.setIcon(icon);
    return box.iconPixmap();
}

} // namespace

int OstrelMessageBox::information(QWidget* parent, const QString& title, const QString& text, bool& prompt,
                                  int yes, int no, int cancel, const QString& promptText)
{
    return message(parent, title, standard_icon(QMessageBox::Information), text, prompt, yes, no, cancel,
                   promptText);
}

int OstrelMessageBox::question(QWidget* parent, const QString& title, const QString& text, bool& prompt,
                               int yes, int no, int cancel, const QString& promptText)
{
    return message(parent, title, standard_icon(QMessageBox::Question), text, prompt, yes, no, cancel,
                   promptText);
}

int OstrelMessageBox::warning(QWidget* parent, const QString& title, const QString& text, bool& prompt,
                              int yes, int no, int cancel, const QString& promptText)
{
    return message(parent, title, standard_icon(QMessageBox::Warning), text, prompt, yes, no, cancel,
                   promptText);
}

int OstrelMessageBox::critical(QWidget* parent, const QString& title, const QString& text, bool& prompt,
                               int yes, int no, int cancel, const QString& promptText)
{
    return message(parent, title, standard_icon(QMessageBox::Critical), text, prompt, yes, no, cancel,
                   promptText);
}

int OstrelMessageBox::message(QWidget* parent, const QString& title, const QPixmap& icon, const QString& text,
                              bool& prompt, int yes, int no, int cancel, const QString& promptText)
{
    // The parent may be deleted while the dialog waits, and the box with it.
    const QPointer<OstrelMessageBox> box = new OstrelMessageBox(parent);
    box->setWindowTitle(title);
    box->set_icon(icon);
    box->set_message(text);
    box->set_buttons(yes, no, cancel);
    const bool has_text = !promptText.isEmpty();
    if (has_text) {
        box->set_prompt_again(prompt);
        box->set_prompt_text(promptText);
    }
    box->adjust_size();
    box->exec();
    if (!box)
        return 0;
    const int result = box->get_result();
    // The two senses are intended; callers without a text of their own rely on the second.
    prompt = has_text ? !box->do_prompt_again() : box->do_prompt_again();
    delete box.data();
    return result;
}
