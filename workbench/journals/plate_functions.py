#!python
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# The plate of plate.jou, made by the functions of the module fennar. Needs the component geometry.

import fennar

fennar.new()
plate = fennar.brick(60, 40, 8, name="plate")

# One drill, and copies of it.
drill = fennar.cylinder(4, 20, at=(20, 12, 0))
drills = [drill] + [fennar.copy(drill, by=offset) for offset in ((-40, 0, 0), (0, -24, 0), (-40, -24, 0))]
fennar.subtract(drills, from_=plate)

least, greatest = plate.bounding_box
print(f"{plate.name}: volume {plate.volume:.6g}, from {least[0]:.6g} to {greatest[0]:.6g} along x")

for size in (8, 4):
    mesh = fennar.mesh(plate, size=size)
    print(f"size {mesh.size:g}: worst element {mesh.quality('ICN')['min']:.2g}")

# The drills are gone, and a plate cannot be 0 wide.
try:
    print(drill.volume)
except fennar.CommandError as error:
    print(error.message)
try:
    fennar.brick(0)
except fennar.CommandError as error:
    print(f"column {error.column}: {error.message}")
