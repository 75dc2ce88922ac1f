#!/usr/bin/env python3
"""Prints a random session: generate.py SEED [--steps N] [--parts views|profiles|all]

`views` keeps to the data and the views; `profiles` adds the profile menu, its dialogs and all profile functions, and
`all` mixes both evenly. Most sessions get a control that shows data; the rest calls it out of order, feeds it what it
cannot load, or stops it in the middle of something.
"""
import argparse
import random

from generate_data import DataWorld
from generate_profiles import TYPED, ProfileWorld

PARTS = ("views", "profiles", "all")
STEPS = 30
VIEW_WEIGHTS = {
    "message": 22, "select": 16, "optBU": 9, "optDisplay": 4, "view": 18, "tab": 4, "collapse": 14, "expand": 5,
    "dblclick": 10, "enter": 4, "techCount": 3, "viewResponse": 7, "language": 2, "sessionIds": 2, "resize": 1,
    "initialize": 1, "about": 1,
}  # fmt: skip
PROFILE_WEIGHTS = {
    "profilesMenu": 8, "menuProfile": 12, "menuSave": 10, "menuSaveAs": 12, "menuManage": 14, "response": 14,
    "sessionIds": 2,
}  # fmt: skip
EVENTS = ["#error", "#error", "#error", "PutProfiles", "GetProfiles", "GetDetails", "PostRequest", "GetProfileList"]
PROFILE_EVENTS = ["SaveProfileAs", "AddProfiles", "RemoveProfiles", "GetProfiles", "PutProfiles"]


class SessionGenerator:
    """Makes the steps of one session."""

    def __init__(self, seed, parts):
        self.random = random.Random(seed)
        self.data = DataWorld(self.random)
        self.profiles = ProfileWorld(self.random, self.data)
        self.chance = self.data.chance
        self.pick = self.data.pick
        self.parts = parts
        self.weights = dict(VIEW_WEIGHTS)
        if parts != "views":
            factor = 2 if parts == "profiles" else 1
            for name, weight in PROFILE_WEIGHTS.items():
                self.weights[name] = self.weights.get(name, 0) + weight * factor

    def steps(self, count):
        steps = [{"op": "create"}]
        if self.chance(0.1):
            steps += [self.early_step() for _ in range(self.random.randint(1, 3))]
        steps += self.opening()
        while len(steps) < count:
            steps += self.next_steps()
        if self.chance(0.15):
            place = self.random.randint(len(steps) // 2, len(steps))
            steps.insert(place, {"op": "stopControl"})
        return steps

    def early_step(self):
        return self.pick([self.data.message(), self.profiles.response(), *map(self.host_step, HOST_NAMES)])

    def opening(self):
        steps = [{"op": "initialize"}]
        if self.chance(0.85):
            steps.append(self.host_step("language"))
        steps += self.session_ids()
        if self.chance(0.05):
            self.random.shuffle(steps)
        if self.chance(0.2):
            names = ["optBU", "optDisplay", "tab", "collapse", "dblclick"]
            steps += [self.view_step(self.pick(names)) for _ in range(3)]
            steps.append(self.profiles.response(self.pick(["PutProfiles", "GetProfiles", "GetProfileList"])))
        if self.chance(0.9):
            steps.append(self.data.message())
        return steps

    def session_ids(self):
        """The ids of the session; the answers to what they raise come inside the events or as steps of their own."""
        step = self.host_step("sessionIds")
        answers = [["GetProfileList", self.profiles.response("GetProfileList")]]
        if self.chance(0.95):
            answers.append(["GetProfiles", self.profiles.response("GetProfiles")])
        if self.chance(0.4):
            answers.append(["PutProfiles", self.profiles.response("PutProfiles")])
        if self.chance(0.5):
            answers.append(["PostRequest", self.data.message() if self.chance(0.7) else self.profiles.response()])
        if self.chance(0.45):
            step["inline"] = answers
            if self.chance(0.06):
                self.stop_inside(step)
            return [step]
        return [step] + [answer for _, answer in answers]

    def next_steps(self):
        name = self.random.choices(list(self.weights), self.weights.values())[0]
        steps = self.make(name)
        if self.chance(0.15) and "inline" not in steps[0]:
            steps[0]["inline"] = [self.inline_entry() for _ in range(self.random.randint(1, 4))]
        if self.chance(0.012):
            self.stop_inside(self.pick(steps))
        return steps

    def stop_inside(self, step):
        """Stops the control in the first error dialog or in the first event of some kind."""
        entries = step.setdefault("inline", [])
        for event in self.random.sample(EVENTS + PROFILE_EVENTS, 4):
            entries.insert(self.random.choice([0, len(entries)]), [event, {"op": "stopControl"}])

    def make(self, name):
        if name == "sessionIds":
            return self.session_ids()
        if name == "message":
            return [self.data.message()]
        if name == "viewResponse":
            functions = ["PutProfiles", "PutProfiles", "GetProfiles", "GetProfileList"]
            return [self.profiles.response(self.pick(functions))]
        if name == "response":
            return [self.profiles.response()]
        if name in HOST_NAMES:
            return [self.host_step(name)]
        if name in ("select", "optBU") and self.chance(0.6):
            return [self.view_step(name), {"op": "view"}]
        return self.menu_steps(name) if name in PROFILE_WEIGHTS else [self.view_step(name)]

    def host_step(self, name):
        if name == "language":
            return {"op": "setRegionalFormatInfo", "language": self.pick(["EN", "PO", "SP", "en", "", "XX"])}
        if name == "sessionIds":
            ids = self.data.some_ids(2) if self.chance(0.4) else list(self.data.ids)
            ids += [extra for extra in ("gone", "#", "U1") if extra not in ids and self.chance(0.05)]
            if self.chance(0.05) and ids:
                ids.append(ids[0])
            return {"op": "setSessionBUIDList", "ids": ids}
        if name == "resize":
            return {"op": "resizeControls"} | ({"width": 900, "height": 600} if self.chance(0.5) else {})
        return {"op": "stopControl" if name == "stop" else "initialize"}

    def inline_entry(self):
        event = self.pick(EVENTS + (PROFILE_EVENTS if self.parts != "views" else []))
        roll = self.random.random()
        if roll < 0.02:
            return [event, {"op": "stopControl"}]
        if roll < 0.35 and event != "#error":
            return [event, self.profiles.response(None if event in ("GetDetails", "PostRequest") else event)]
        if roll < 0.6:
            return [event, self.profiles.response(self.pick(["PutProfiles", "GetProfiles", "GetProfileList"]))]
        if roll < 0.9:
            return [event, self.data.message()]
        return [event, self.host_step(self.pick(["language", "sessionIds", "resize", "initialize"]))]

    def view_step(self, name):
        if name == "select":
            return {"op": "select", "ids": self.data.some_ids() + (["gone"] if self.chance(0.1) else [])}
        if name in ("optBU", "optDisplay", "tab"):
            return {"op": name, "index": self.pick([0, 1, 0, 1, 0, 1, 0, 1, 2])}
        if name in ("collapse", "expand"):
            return self.node_step(name)
        if name in ("dblclick", "enter"):
            return self.cell_step(name)
        return {"op": name}

    def node_step(self, name):
        step = {"op": name, "grid": self.random.randint(0, 2)}
        if self.chance(0.5):
            step["row"] = self.random.randint(2, 12) if self.chance(0.95) else self.pick([0, 1, 99])
        elif step["grid"] == 0:
            step["data"] = self.pick([*self.data.types, "TOTAL", "|H", "RE|H", "gone"])
        else:
            step["data"] = self.pick([*self.data.ids, "#", "gone"])
        return step

    def cell_step(self, name):
        grid = self.random.randint(0, 2)
        step = {"op": name, "grid": grid, "row": self.random.randint(2, 10), "col": self.random.randint(0, 11)}
        if grid == 0 and self.chance(0.5):
            step["col"] = self.random.randint(12, 16)
        if self.chance(0.3):
            step["row"] = 2
        if name == "enter":
            if self.chance(0.15):
                step["shift"] = True
            return step
        if self.chance(0.25 if step["row"] > 2 else 0.6):
            step["mouseRow"] = self.random.randint(-1, 12)
        if self.chance(0.08):
            step["mouseCol"] = self.random.randint(0, 11)
        if self.chance(0.1):
            step["button"] = self.pick([1, 2, 4, 0])
        return step

    def menu_steps(self, name):
        answered = self.chance(0.7)
        if name == "menuProfile":
            opening = [{"op": "profilesMenu"}] if self.chance(0.6) else []
            step = {"op": "menuProfile", "index": self.random.randint(0, 4)}
            if self.chance(0.3):
                step["actions"] = self.actions()
            return opening + self.answered(step, "GetProfiles", self.pick(TYPED), answered)
        if name == "menuSave":
            return self.answered({"op": "menuSave"}, "PutProfiles", None, answered)
        if name == "menuSaveAs":
            step = {"op": "menuSaveAs", "dialog": self.name_entries()}
            if self.chance(0.8):
                step["confirm"] = self.pick(["yes", "yes", "no"])
            name = step["dialog"][-1]["text"].strip(" ") if step["dialog"] else None
            steps = self.answered(step, "SaveProfileAs", name, answered)
            if answered and self.chance(0.8):
                self.add_answer(steps, "GetProfiles", name)
            return steps
        if name == "menuManage":
            step = {"op": "menuManage", "actions": self.actions()}
            function = self.pick(["AddProfiles", "RemoveProfiles", "GetProfiles"])
            return self.answered(step, function, self.pick(TYPED), answered)
        return [{"op": name}]

    def answered(self, step, function, name, answered):
        steps = [step]
        if answered:
            self.add_answer(steps, function, name)
        return steps

    def add_answer(self, steps, function, name):
        answer = self.profiles.response(function, name)
        if self.chance(0.5) and (len(steps) == 1 or "inline" in steps[0]):
            steps[0].setdefault("inline", []).append([function, answer])
        else:
            steps.append(answer)

    def name_entries(self):
        buttons = ["ok", "ok", "ok", "ok", "cancel"]
        return [{"text": self.pick(TYPED), "button": self.pick(buttons)} for _ in range(self.random.randint(0, 3))]

    def actions(self):
        return [self.action() for _ in range(self.random.randint(0, 4))]

    def action(self):
        action = {"do": self.pick(["choose", "choose", "new", "new", "remove", "remove", "remove", "close"])}
        if self.chance(0.85):
            action["name"] = self.pick(TYPED)
        if action["do"] == "new":
            action["dialog"] = self.name_entries()
        if action["do"] == "remove" and self.chance(0.85):
            action["confirm"] = self.pick(["yes", "no"])
        return action


HOST_NAMES = ["language", "sessionIds", "resize", "initialize", "stop"]


def session(seed, steps=STEPS, parts="all"):
    """The steps of the session with this number."""
    return SessionGenerator(seed, parts).steps(steps)


def main():
    import reference

    parser = argparse.ArgumentParser()
    parser.add_argument("seed", type=int)
    parser.add_argument("--steps", type=int, default=STEPS)
    parser.add_argument("--parts", choices=PARTS, default="all")
    options = parser.parse_args()
    reference.print_steps(session(options.seed, options.steps, options.parts))


if __name__ == "__main__":
    main()
