// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that works in the background: it keeps the unsaved journals on disk while the program runs,
// and offers them at the next start if the program did not come to its end. It also sees to it that journals
// and their files do not part unnoticed.

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "journal/JournalEditor.h"
#include "workbench/components/component.h"
#include "workbench/components/recovery/DocumentKeeper.h"
#include "workbench/components/recovery/JournalFiles.h"
#include "workbench/components/recovery/RecoveryOffer.h"
#include "workbench/fennari19/CommandCall.h"
#include "workbench/fennari19/CommandRegistry.h"
#include "workbench/fennari19/Fennar.h"

#include <QDir>
#include <QPointer>
#include <QStandardPaths>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto owner = "recovery";

/** So much of a user's work may get lost. */
constexpr auto interval = 15s;

void report(const QString& text)
{
    Broker::command << u"ERROR: "_s + text + u'\n';
}

/** All that the component has while there is a window. */
class Recovery : public QObject
{
    Q_OBJECT

public:
    explicit Recovery(Ostrel* window);
    ~Recovery() override;

    /** Opens the box with what there is to recover. Returns false if there is nothing. */
    bool offer();

private:
    void act(RecoveryOffer::Answer answer);
    void restore(const RecoveryOffer& offer);

    QString mRoot;
    Ostrel* mWindow;
    JournalFiles mFiles;
    DocumentKeeper mKeeper;
    /** A child of the window. */
    QPointer<RecoveryOffer> mOffer;
};

Recovery::Recovery(Ostrel* window)
    : QObject(window),
      mRoot(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/recovery"_s),
      mWindow(window),
      mFiles(window->journal_editor(), &report),
      mKeeper(window->journal_editor(), mRoot, interval, &report)
{
    setObjectName(u"Recovery"_s);
    mKeeper.set_check([this](QPlainTextEdit* document) { mFiles.verify(document); });
    mFiles.setObjectName(u"journalFiles"_s);
    mFiles.setParent(this);
    mKeeper.setObjectName(u"documentKeeper"_s);
    mKeeper.setParent(this);
}

Recovery::~Recovery()
{
    // What the user has not decided on stays for later.
    delete mOffer;
}

bool Recovery::offer()
{
    if (!mOffer) {
        std::vector<std::unique_ptr<RecoveryFolder>> left = RecoveryFolder::claim_left(mRoot);
        if (left.empty())
            return false;
        mOffer = new RecoveryOffer(mWindow, std::move(left));
        connect(mOffer, &RecoveryOffer::answered, this, &Recovery::act);
    }
    mOffer->show();
    mOffer->activateWindow();
    return true;
}

void Recovery::act(RecoveryOffer::Answer answer)
{
    if (answer == RecoveryOffer::Answer::Restore) {
        restore(*mOffer);
    } else if (answer == RecoveryOffer::Answer::Discard) {
        for (const RecoveryOffer::Entry& entry : mOffer->entries())
            entry.folder->remove(entry.name);
    }
    mOffer->give_up();
    // This is called from it.
    mOffer->deleteLater();
    mOffer = nullptr;
}

void Recovery::restore(const RecoveryOffer& offer)
{
    std::vector<RecoveryOffer::Entry> opened;
    for (const RecoveryOffer::Entry& entry : offer.entries()) {
        if (const std::optional<KeptDocument> kept = entry.folder->read(entry.name)) {
            mKeeper.open(*kept);
            opened.push_back(entry);
        }
    }
    // The old copies go only once there are new ones.
    mKeeper.keep();
    if (mKeeper.finish()) {
        for (const RecoveryOffer::Entry& entry : opened)
            entry.folder->remove(entry.name);
    }
    if (opened.size() < offer.entries().size())
        Broker::command << tr("ERROR: Not all journals could be read. They stay in %1.\n")
                               .arg(QDir::toNativeSeparators(mRoot));
    JournalEditor* const editor = mWindow->journal_editor();
    if (editor->isMinimized())
        editor->showNormal();
    else
        editor->show();
    editor->activateWindow();
}

/** A child of the window. */
QPointer<Recovery> recovery;

/** "recover" */
void run_command(CommandCall& call)
{
    call.expect_end();
    if (!recovery || !recovery->offer())
        call.print(u"There are no journals to recover.\n"_s);
}

void load()
{
    // A run without a window has no journals that could get lost.
    Ostrel* const window = Ostrel::instance();
    if (!window || !window->journal_editor())
        return;
    Fennar::instance().registry().add(
        {.name = u"recover"_s,
         .summary = u"Offers the journals that were kept for later."_s,
         .help = u"They are what was unsaved when a run of the program ended unexpectedly."_s,
         .owner = QString::fromLatin1(owner),
         .run = &run_command,
         .forms = {{}}});
    recovery = new Recovery(window);
    recovery->offer();
}

void unload()
{
    delete recovery;
    Fennar::instance().registry().remove_owner(QString::fromLatin1(owner));
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, owner, "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)

#include "recovery.moc"
