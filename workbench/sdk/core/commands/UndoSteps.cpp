// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/UndoSteps.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace fennar {

UndoSteps::Change::~Change() = default;

qint64 UndoSteps::Step::memory(bool done) const
{
    qint64 bytes = qint64(sizeof(Step)) + command.size() * qint64(sizeof(QChar));
    for (const auto& change : changes)
        bytes += change->memory(done);
    return bytes;
}

void UndoSteps::add_source(const QString& owner, const Source& source)
{
    if (source)
        mSources.push_back({owner, source});
}

void UndoSteps::remove_owner(const QString& owner)
{
    if (std::erase_if(mSources, [&owner](const OwnedSource& source) { return source.owner == owner; }) > 0)
        clear();
}

QStringList UndoSteps::owners() const
{
    QStringList owners;
    for (const OwnedSource& source : mSources)
        owners << source.owner;
    return owners;
}

void UndoSteps::clear()
{
    // One of the steps may be at work.
    mDropped = mMoving;
    if (mMoving)
        return;
    // Nobody who is told, or whose changes go, finds half of it.
    const std::vector<Step> dropped = std::exchange(mSteps, {});
    mDone = 0;
    mMemory = 0;
    emit changed();
}

void UndoSteps::commit(const QString& command)
{
    if (mMoving)
        return;
    Step step{command, journal()};
    for (const OwnedSource& source : mSources) {
        if (std::unique_ptr<Change> change = source.take())
            step.changes.push_back(std::move(change));
    }
    if (step.changes.empty())
        return;
    for (; mSteps.size() > mDone; mSteps.pop_back())
        mMemory -= mSteps.back().memory(false);
    mMemory += step.memory(true);
    mSteps.push_back(std::move(step));
    ++mDone;
    drop_surplus();
    emit changed();
}

std::size_t UndoSteps::move(bool back, bool single)
{
    if (mMoving)
        return 0;
    commit({});
    const auto next = [&]() -> const Step* {
        if (back ? !can_undo() : !can_redo())
            return nullptr;
        return &mSteps[back ? mDone - 1 : mDone];
    };
    const Step* step = next();
    if (!step)
        return 0;
    // A journal that takes something back itself means its last command.
    const int number = step->journal;
    const bool whole = !single && number != 0 && number != journal();
    std::size_t count = 0;
    {
        const auto end = qScopeGuard([this] { mMoving = false; });
        mMoving = true;
        do {
            move_one(back);
            ++count;
            step = mDropped ? nullptr : next();
        } while (whole && step && step->journal == number);
    }
    if (mDropped) {
        clear();
        return count;
    }
    drop_surplus();
    emit changed();
    return count;
}

void UndoSteps::move_one(bool back)
{
    const Step& step = mSteps[back ? mDone - 1 : mDone];
    mMemory += step.memory(!back) - step.memory(back);
    mDone = back ? mDone - 1 : mDone + 1;
    if (back)
        std::for_each(step.changes.rbegin(), step.changes.rend(), [](const auto& change) { change->undo(); });
    else
        std::for_each(step.changes.begin(), step.changes.end(), [](const auto& change) { change->redo(); });
}

void UndoSteps::set_limit(qint64 bytes)
{
    mLimit = bytes;
    drop_surplus();
    emit changed();
}

void UndoSteps::drop_surplus()
{
    while (mMemory > mLimit && !mSteps.empty()) {
        const bool oldest = mDone >= mSteps.size() - mDone;
        const auto farthest = oldest ? mSteps.begin() : std::prev(mSteps.end());
        mMemory -= farthest->memory(oldest);
        mSteps.erase(farthest);
        mDone -= oldest ? 1 : 0;
    }
}

} // namespace fennar
