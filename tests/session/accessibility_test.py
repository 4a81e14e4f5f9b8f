"""What the accessibility bus tells of the windows; to be run on a session bus of its own."""
import os
import unittest

import pyatspi

from session import Desktop, Game, wait

PIECES = [f"{colour} pjäs {n}" for colour in ("Röd", "Blå", "Grön", "Gul") for n in (1, 2, 3, 4)]
# What is shown and is more than decoration, by role, states and first action.
SHOWN = {
    "start": {
        "radio button, focusable, Toggle": ["En spelare"],
        "radio button, enabled, checked, focusable, Toggle": ["Två spelare"],
        "radio button, enabled, focusable, Toggle": ["Tre spelare", "Fyra spelare"],
        "text, enabled, focusable, SetFocus": ["Namn på spelare 1", "Namn på spelare 2"],
        "text, focusable": ["Namn på spelare 3", "Namn på spelare 4"],
        "push button, enabled, focusable, Press": ["Starta"],
        "check box, enabled, checked, focusable, Toggle": ["Ljud på/av"],
    },
    "main": {
        "push button, enabled, Press": [
            *["Arkiv, meny", "Om Brusbo", "Minimera", "Avsluta", "Tärning, visar 1", *PIECES]
        ]
    },
    "about": {"push button, enabled, focusable, Press": ["Klar"]},
    "farewell": {
        "text, enabled, focusable, SetFocus": ["Avskedstext"],
        "push button, enabled, focusable, Press": ["Stäng"],
    },
}


def is_shown(element):
    return element.getState().contains(pyatspi.STATE_SHOWING)


def looks(element):
    """Role, states and first action."""
    states = [state.value_nick for state in element.getState().getStates()]
    states = [state for state in ("enabled", "checked", "focusable") if state in states]
    action = "Action" in pyatspi.listInterfaces(element) and element.queryAction()
    first = [action.getName(0)] if action and action.nActions else []
    return ", ".join([element.getRoleName(), *states, *first])


class Accessibility(unittest.TestCase):
    def test_windows_tell_what_they_show_and_take_presses(self):
        desktop = self.enterContext(Desktop())
        desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        game = Game(desktop, environment={"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        programs = pyatspi.Registry.getDesktop(0)
        program = wait("the program", lambda: [p for p in programs if p.name == "brusbo"])[0]
        for window, press in zip(SHOWN, ("Starta", "Tärning", "Klar", "nothing")):
            game.find(window)
            elements = pyatspi.findAllDescendants([*filter(is_shown, program)][-1], is_shown)
            told = {}
            for element in elements:
                if element.getRoleName() not in ("filler", "label"):
                    told.setdefault(looks(element), []).append(element.name)
            self.assertEqual(told, SHOWN[window])
            message = window == "main" and game.look("message")
            for button in elements:
                if button.name.startswith(press):
                    button.queryAction().doAction(0)
            if window == "main":
                game.changes("message", message)
                game.click("mnuOm")
            elif window == "about":
                game.closes("about")
                game.click("butAvsluta")
        game.click("Stäng")
        game.ends()
