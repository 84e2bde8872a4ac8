"""Where the window comes up, whatever place it had the last time, which it remembers in its own units."""

import unittest

from case import WindowCase
from desktop import Desktop


class Place(WindowCase):
    def expect_within(self, portico):
        width, height = (side // self.scale for side in Desktop.SIZE)

        def is_within():
            box = portico.main.extents()
            bar = next(node for node in portico.main.descendants() if node.role == "status bar").extents()
            # Something is left for the frame: its title above, its edges beside and below.
            return (box.x >= 0 and box.y >= 10 and box.x + box.width <= width and box.y + box.height <= height
                    and bar.height > 0 and bar.y + bar.height <= box.y + box.height)

        portico.wait(is_within, f"the window within {width} x {height}, instead of {self.where(portico)}")

    @staticmethod
    def where(portico):
        box = portico.main.extents()
        return (box.x, box.y, box.width, box.height)

    def test_a_window_that_was_larger_than_the_screen_fits(self):
        self.remember("frmMain", MainLeft=1000, MainTop=1000, MainWidth=60000, MainHeight=60000)
        self.expect_within(self.open())

    def test_a_window_that_was_below_the_screen_is_seen_whole(self):
        self.remember("frmMain", MainLeft=600, MainTop=60000, MainWidth=6000, MainHeight=6000)
        self.expect_within(self.open())

    def test_a_window_over_the_edge_is_seen_whole(self):
        self.remember("frmMain", MainLeft=-1500, MainTop=-600, MainWidth=6000, MainHeight=6000)
        portico = self.open()
        self.expect_within(portico)
        self.assertEqual(self.where(portico)[2:], (400, 400))


class PlaceOnAScreenWithLargeDots(Place):
    scale = 2


if __name__ == "__main__":
    unittest.main()
