# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause
"""Works for a moment, so that the cancel button can be tried: it raises KeyboardInterrupt in the script."""

import math

LIMIT = 20_000

primes: list[int] = []
try:
    for number in range(2, LIMIT):
        if all(number % prime for prime in primes if prime <= math.isqrt(number)):
            primes.append(number)
except KeyboardInterrupt:
    print(f"Cancelled at {number}; what was found so far is kept.")

print(f"{len(primes)} primes, the last is {primes[-1]}")
print("That was progress.py.")
