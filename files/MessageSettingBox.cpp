// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/MessageSettingBox.h"

#include "ui_QtMessageSettingBox.h"

#include <QMessageBox>
#include <QShortcut>

#include <algorithm>
#include <array>
#include <map>

namespace {

struct ButtonKind
{
    int code;
    const char* text;
};

// In the order of the codes.
constexpr std::array<ButtonKind, 9> button_kinds{{
    {QMessageBox::Ok, QT_TRANSLATE_NOOP("MessageSettingBox", "&OK")},
    {QMessageBox::Yes, QT_TRANSLATE_NOOP("MessageSettingBox", "&Yes")},
    {QMessageBox::YesToAll, QT_TRANSLATE_NOOP("MessageSettingBox", "&Yes to All")},
    {QMessageBox::No, QT_TRANSLATE_NOOP("MessageSettingBox", "&No")},
    {QMessageBox::NoToAll, QT_TRANSLATE_NOOP("MessageSettingBox", "&No to All")},
    {QMessageBox::Abort, QT_TRANSLATE_NOOP("MessageSettingBox", "&Abort")},
    {QMessageBox::Retry, QT_TRANSLATE_NOOP("MessageSettingBox", "&Retry")},
    {QMessageBox::Ignore, QT_TRANSLATE_NOOP("MessageSettingBox", "&Ignore")},
    {QMessageBox::Cancel, QT_TRANSLATE_NOOP("MessageSettingBox", "&Cancel")},
}};

struct ShortcutKey
{
    Qt::Key key;
    int code;
};

constexpr std::array<ShortcutKey, 7> shortcut_keys{{
    {Qt::Key_O, QMessageBox::Ok},
    {Qt::Key_C, QMessageBox::Cancel},
    {Qt::Key_Y, QMessageBox::Yes},
    {Qt::Key_N, QMessageBox::No},
    {Qt::Key_A, QMessageBox::Abort},
    {Qt::Key_R, QMessageBox::Retry},
    {Qt::Key_I, QMessageBox::Ignore},
}};

bool accepts(int code)
{
    return code == QMessageBox::Ok || code == QMessageBox::Yes || code == QMessageBox::YesToAll ||
           code == QMessageBox::Retry;
}

} // namespace

struct MessageSettingBox::Form : Ui::QtMessageSettingBox
{
    std::map<QShortcut*, int> mShortcuts;
};

MessageSettingBox::MessageSettingBox(QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Form>()),
      mYesCode(QMessageBox::Yes),
      mNoCode(QMessageBox::No),
      mCancelCode(QMessageBox::Cancel)
{
    ui->setupUi(this);
    for (const auto& [key, code] : shortcut_keys) {
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, &MessageSettingBox::handle_shortcut);
        connect(shortcut, &QShortcut::activatedAmbiguously, this, &MessageSettingBox::handle_shortcut);
        ui->mShortcuts.emplace(shortcut, code);
    }
    connect(ui->mYesButton, &QPushButton::clicked, this, &MessageSettingBox::yes_clicked);
    connect(ui->mNoButton, &QPushButton::clicked, this, &MessageSettingBox::no_clicked);
    connect(ui->mCancelButton, &QPushButton::clicked, this, &MessageSettingBox::cancel_clicked);
}

MessageSettingBox::~MessageSettingBox() = default;

void MessageSettingBox::set_icon(const QPixmap& icon)
{
    ui->mIcon->setPixmap(icon);
}

void MessageSettingBox::set_message(const QString& message)
{
    ui->mMessage->setText(message);
}

void MessageSettingBox::set_buttons(int yes, int no, int cancel)
{
    mYesCode = yes;
    mNoCode = no == yes ? 0 : no;
    mCancelCode = cancel == no || cancel == yes ? 0 : cancel;
    update_button(ui->mYesButton, mYesCode);
    update_button(ui->mNoButton, mNoCode);
    update_button(ui->mCancelButton, mCancelCode);
}

void MessageSettingBox::set_prompt_text(const QString& text)
{
    ui->mPrompt->setText(text);
}

void MessageSettingBox::set_prompt_again(bool checked)
{
    ui->mPrompt->setChecked(checked);
}

bool MessageSettingBox::do_prompt_again() const
{
    return !ui->mPrompt->isChecked();
}

void MessageSettingBox::adjust_size()
{
    const QFontMetrics metrics(ui->mMessage->font());
    const QStringList lines = ui->mMessage->text().split(QLatin1Char('\n'));
    int widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    if (widest >= 1)
        ui->mMessage->setMinimumSize(widest + 10, metrics.height() * static_cast<int>(lines.size()));
    layout()->invalidate();
    setFixedSize(minimumSizeHint() + QSize(0, 20));
}

int MessageSettingBox::get_result() const
{
    return mResult;
}

void MessageSettingBox::yes_clicked()
{
    set_result(mYesCode);
}

void MessageSettingBox::no_clicked()
{
    set_result(mNoCode);
}

void MessageSettingBox::cancel_clicked()
{
    set_result(mCancelCode);
}

void MessageSettingBox::handle_shortcut()
{
    const auto found = ui->mShortcuts.find(qobject_cast<QShortcut*>(sender()));
    if (found == ui->mShortcuts.end())
        return;
    const int code = found->second;
    if (code == mYesCode || code == mNoCode || code == mCancelCode)
        set_result(code);
}

void MessageSettingBox::set_result(int code)
{
    mResult = code;
    if (accepts(code))
        accept();
    else
        reject();
}

void MessageSettingBox::update_button(QPushButton* button, int code)
{
    if (code == 0) {
        button->hide();
        return;
    }
    const auto* kind = std::find_if(button_kinds.begin(), button_kinds.end(),
                                    [code](const ButtonKind& candidate) { return candidate.code == code; });
    if (kind != button_kinds.end())
        button->setText(tr(kind->text));
}
