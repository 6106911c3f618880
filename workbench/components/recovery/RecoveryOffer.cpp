// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/recovery/RecoveryOffer.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar::recovery {

namespace {

/** How many documents are named; more would make the box higher than a screen. */
constexpr std::size_t most_names = 10;

QPushButton* add_button(QMessageBox* box, const QString& name, const QString& text,
                        QMessageBox::ButtonRole role)
{
    QPushButton* button = box->addButton(text, role);
    button->setObjectName(name);
    return button;
}

} // namespace

RecoveryOffer::RecoveryOffer(QWidget* parent, std::vector<std::unique_ptr<RecoveryFolder>> folders)
    : QMessageBox(parent),
      mFolders(std::move(folders)),
      mRestore(add_button(this, u"recoveryRestore"_s, tr("&Restore All"), AcceptRole)),
      mDiscard(add_button(this, u"recoveryDiscard"_s, tr("&Discard"), DestructiveRole))
{
    setObjectName(u"recoveryOffer"_s);
    QPushButton* later = add_button(this, u"recoveryLater"_s, tr("&Keep for Later"), RejectRole);
    setEscapeButton(later);
    setDefaultButton(mRestore);
    setModal(false);
    setIcon(Question);
    setWindowTitle(tr("Recover Unsaved Work"));
    // File names may look like markup.
    setTextFormat(Qt::PlainText);

    using Titled = std::pair<KeptDocument, Entry>;
    std::vector<Titled> documents;
    for (const auto& folder : mFolders) {
        const QStringList names = folder->names();
        for (const QString& name : names) {
            documents.emplace_back(folder->read_head(name), Entry{folder.get(), name});
        }
    }
    std::stable_sort(documents.begin(), documents.end(), [](const Titled& one, const Titled& other) {
        return one.first.changed < other.first.changed;
    });
    QStringList titles;
    const QDateTime now = QDateTime::currentDateTime();
    for (const auto& [kept, entry] : documents) {
        mEntries.push_back(entry);
        if (mEntries.size() <= most_names)
            titles << kept.title(now);
    }
    if (mEntries.size() > most_names)
        titles << tr("and %1 more").arg(mEntries.size() - most_names);
    setText(tr("Unsaved work was kept when the program ended unexpectedly:") + u"\n\n"_s +
            titles.join(u'\n'));
    connect(this, &QDialog::finished, this, &RecoveryOffer::tell_answer);
}

void RecoveryOffer::give_up()
{
    for (const auto& folder : mFolders)
        folder->remove_if_empty();
    mEntries.clear();
    mFolders.clear();
}

void RecoveryOffer::tell_answer()
{
    if (clickedButton() == mRestore)
        emit answered(Answer::Restore);
    else if (clickedButton() == mDiscard)
        emit answered(Answer::Discard);
    else
        emit answered(Answer::Later);
}

} // namespace fennar::recovery
