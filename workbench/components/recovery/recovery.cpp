// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that works in the background: it keeps unsaved journals, and what other components have
// unsaved, on disk while the program runs, and offers them at the next start if the program did not come to
// its end.

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "journal/JournalEditor.h"
#include "workbench/components/recovery/DocumentKeeper.h"
#include "workbench/components/recovery/RecoveryOffer.h"
#include "workbench/components/recovery/WorkKeeper.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QDir>
#include <QPointer>
#include <QStandardPaths>

#include <chrono>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

using namespace fennar;
using namespace fennar::recovery;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/** So much of a user's work may get lost. */
constexpr auto interval = 15s;

void print_error(const QString& text)
{
    Fennar::instance().interpreter().print_error(u"ERROR: "_s + text + u'\n');
}

/** All that the component has while there is a window; a child of it. */
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
    /** Gives work back to its component. Returns false if that has other work that is unsaved, or none. */
    bool restore_work(const KeptDocument& kept);
    static void tell_left(const KeptDocument& kept);

    QString mRoot;
    Ostrel* mWindow;
    DocumentKeeper mKeeper;
    WorkKeeper mWorkKeeper;
    /** A child of the window. */
    QPointer<RecoveryOffer> mOffer;
};

Recovery::Recovery(Ostrel* window)
    : QObject(window),
      mRoot(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/recovery"_s),
      mWindow(window),
      mKeeper(window->journal_editor(), mRoot, interval, &print_error),
      mWorkKeeper(mRoot, interval, &print_error)
{
    setObjectName(u"Recovery"_s);
    mKeeper.setObjectName(u"documentKeeper"_s);
    mKeeper.setParent(this);
    mWorkKeeper.setObjectName(u"workKeeper"_s);
    mWorkKeeper.setParent(this);
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
    std::size_t unreadable = 0;
    QStringList kinds;
    // Backwards, since of one kind the work that was changed last comes back; journals in their order.
    std::vector<std::pair<RecoveryOffer::Entry, KeptDocument>> documents;
    for (auto entry = offer.entries().rbegin(); entry != offer.entries().rend(); ++entry) {
        std::optional<KeptDocument> kept = entry->folder->read(entry->name);
        if (!kept) {
            ++unreadable;
        } else if (kept->kind.isEmpty()) {
            documents.emplace_back(*entry, std::move(*kept));
        } else if (!kinds.contains(kept->kind) && restore_work(*kept)) {
            kinds << kept->kind;
            opened.push_back(*entry);
        } else {
            tell_left(*kept);
        }
    }
    for (auto document = documents.rbegin(); document != documents.rend(); ++document) {
        mKeeper.open(document->second);
        opened.push_back(document->first);
    }
    // The old copies go only once there are new ones.
    mKeeper.keep();
    mWorkKeeper.keep();
    const bool kept = mKeeper.finish();
    if (mWorkKeeper.finish() && kept) {
        for (const RecoveryOffer::Entry& entry : opened)
            entry.folder->remove(entry.name);
    }
    if (unreadable > 0)
        print_error(
            tr("Not all that was kept could be read. It stays in %1.").arg(QDir::toNativeSeparators(mRoot)));
    if (documents.empty())
        return;
    JournalEditor* const editor = mWindow->journal_editor();
    if (editor->isMinimized())
        editor->showNormal();
    else
        editor->show();
    editor->activateWindow();
}

bool Recovery::restore_work(const KeptDocument& kept)
{
    const std::optional<UnsavedWork> work = UnsavedWorks::instance().find(kept.kind);
    if (!work || work->state())
        return false;
    const QString error = work->restore(kept.data.join(), kept.file);
    if (!error.isEmpty())
        print_error(error);
    return error.isEmpty();
}

void Recovery::tell_left(const KeptDocument& kept)
{
    Broker::command << tr("%1 stays kept. The command \"recover\" offers it again.").arg(kept.title()) +
                           u'\n';
}

} // namespace

void fennar::load_component(ComponentContext& context)
{
    // A run without a window has no journals that could get lost.
    Ostrel* const window = context.window();
    // It stands above the command that reaches it.
    const QPointer<Recovery> recovery =
        window && window->journal_editor() ? &context.make<Recovery>(window) : nullptr;
    context.add_command(
        {.name = u"recover"_s,
         .summary = u"Offers the unsaved work that was kept for later."_s,
         .help = u"These are the journals and the model that were unsaved when a run of the program ended\n"
                 "unexpectedly."_s,
         .perform =
             [recovery](CommandCall& call, const CommandArguments&) {
                 if (!recovery)
                     throw call.error(0, u"there is no window to offer it in; start the program with one"_s);
                 if (!recovery->offer())
                     call.print(u"There is nothing to recover.\n"_s);
             },
         .changes_model = true,
         .runs_commands = true}); // restoring is what other components do
    if (recovery)
        recovery->offer();
}

#include "recovery.moc"
