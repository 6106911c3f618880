# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Calls that a type checker finds wrong: each is marked, and a mark without an error is an error, too."""

import fennar

part = fennar.brick(1)
fennar.brick()  # type: ignore[call-arg]
fennar.brick("1")  # type: ignore[arg-type]
fennar.brick(1, nam="part")  # type: ignore[call-arg]
fennar.brick(1, at=1)  # type: ignore[arg-type]
fennar.subtract(part)  # type: ignore[call-arg]
fennar.subtract(fennar.mesh(part, size=1), from_=part)  # type: ignore[arg-type]
fennar.quality("XYZ")  # type: ignore[arg-type]
part.faces[0].volume  # type: ignore[attr-defined]
fennar.mesh(part, size=1).nodes.color  # type: ignore[attr-defined]
fennar.view(5)  # type: ignore[arg-type]
fennar.view(part, size=3)  # type: ignore[arg-type]
part.weight  # type: ignore[attr-defined]
part.volume = 3  # type: ignore[misc]
part.volume.upper()  # type: ignore[attr-defined]
fennar.mesh(part, size=1).quality("XYZ")  # type: ignore[arg-type]
fennar.no_such()  # type: ignore[attr-defined]
