# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Calls in which a type checker finds nothing wrong."""

from pathlib import Path

import fennar


def half(part: fennar.Solid) -> float:
    return part.volume / 2


parts = [fennar.brick(10, 20, 5, at=(0, 0, 0), name="base"), fennar.sphere(1, at=[1, 2.5, 3])]
sizes: list[float] = [half(part) for part in parts]
fennar.move(parts, by=(1, 0, 0))
fennar.move("base", 2, parts[0], by=(1, 0, 0))
names: list[str] = [part.name for part in fennar.list()]
fennar.export(Path("a.step"), parts, as_="STEP")
fennar.export("a.msh", mesh=True)
fennar.set("size", 2)
worst: float = fennar.mesh(size=1, algorithm="hxt", threads=2, verbose=True).quality("ICN")["min"]
mesh = fennar.mesh(size=1)
height: float = float(mesh.nodes[:, 2].max())
corners: int = mesh.elements["Tetrahedron 4"].shape[1]
largest: fennar.Face = max(parts[0].faces, key=lambda face: face.area)
middle: list[float] = largest.center
fennar.view().save(Path("all.png"))
picture: fennar.Picture = fennar.view([parts[0], "base"], size=(320, 240))
fennar.view(mesh)
fennar.view_("iso")
counts: dict[str, int] = fennar.statistics()
try:
    fennar.delete(parts)
except fennar.CommandError as error:
    print(error.column, error.remedy.upper())
