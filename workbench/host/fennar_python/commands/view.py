# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Pictures of solids and meshes. Runs with the names of commands.py."""

MOST_PIXELS = 4000

SOLIDS, ALL, MESH = range(3)  # as PythonPicture::Mesh


class Picture:
    """A picture, which a notebook shows.

    png   the bytes of a PNG file
    size  width and height in pixels
    """

    __slots__ = ("png", "size")
    __module__ = "fennar"

    def __init__(self, png, size):
        self.png = png
        self.size = size

    def save(self, path):
        """Writes the PNG file. If that fails with an OSError, a file of that name stays as it was."""
        fault = write_file(os.fsencode(path), self.png)
        if fault:
            raise OSError(f"{os.fsdecode(path)!r} cannot be written: {fault}")

    def _repr_png_(self):
        return self.png

    def __repr__(self):
        return f"<picture of {self.size[0]} x {self.size[1]} pixels>"


def view(shown=None, size=(640, 480)):
    """Draws a picture of solids or of the mesh, from the right, front and above, in the light of the graphics view.

    It needs no window. In a notebook the picture is shown where it is the value of a cell; its save(path) writes it.

    shown: A solid or its name, several of them, or the mesh. Without it all there is, with the mesh where there is one.
    size: Width and height (two whole numbers from 1 to 4000, in pixels)

    Returns a picture.
    """
    pixels = tuple(size) if is_group(size) else ()
    if len(pixels) != 2 or not all(is_number(side, numbers.Integral) and 1 <= side <= MOST_PIXELS for side in pixels):
        raise wrong_type("size", "view", f"two whole numbers from 1 to {MOST_PIXELS}", size)
    pixels = tuple(int(side) for side in pixels)
    if shown is None:
        return Picture(draw([], ALL, *pixels), pixels)
    if isinstance(shown, Entity) and shown.kind == "mesh":
        shown.name  # raises if it is gone
        return Picture(draw([], MESH, *pixels), pixels)
    parts = list(shown) if is_group(shown) else [shown]
    names = [part.name if isinstance(part, Entity) and part.kind == "solid" else part for part in parts]
    if not names or not all(valid_text(name) for name in names):
        raise wrong_type("shown", "view", "solids or a mesh", shown)
    return Picture(draw(names, SOLIDS, *pixels), pixels)


view.__module__ = "fennar"
