// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace fennar {

template <typename Signature>
class Callback;

/** A function, or none, that stays alive while it runs, even if it sets another one in its own place. */
template <typename Result, typename... Arguments>
class Callback<Result(Arguments...)>
{
public:
    /** What it holds. */
    using Function = std::function<Result(Arguments...)>;

    /** Sets the function; an empty one for none. */
    Callback& operator=(const Function& function)
    {
        mFunction = function ? std::make_shared<const Function>(function) : nullptr;
        return *this;
    }
    /** Whether there is a function. */
    explicit operator bool() const { return mFunction != nullptr; }

    /** Calls the function. Without one nothing happens, and the result is a default one. */
    Result operator()(Arguments... arguments) const
    {
        const std::shared_ptr<const Function> function = mFunction;
        return function ? (*function)(std::forward<Arguments>(arguments)...) : Result();
    }

private:
    std::shared_ptr<const Function> mFunction;
};

} // namespace fennar
