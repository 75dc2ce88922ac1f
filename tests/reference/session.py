"""Plays a recorded session on the model and gives its transcript."""
from basics import Refused, RunTimeError
from viewer import Viewer
from webdata import Message, Table, message_from_text, result_text


class DialogScript:
    """What the user does in the dialogs of one step; a dialog opened from inside another goes on with what is left."""

    def __init__(self, step):
        self.step = step
        self.pending_actions = list(step.get("actions", []))
        self.action = None

    def actions(self):
        while self.pending_actions:
            self.action = self.pending_actions.pop(0)
            yield self.action

    def current(self):
        return self.action if self.action is not None else self.step

    def name_entries(self):
        return self.current().get("dialog", [])

    def confirmed(self):
        return self.current().get("confirm") == "yes"


class Session:
    """One control with its scripted host and user."""

    def __init__(self):
        self.viewer = None
        self.entries = []
        self.inline = []
        self.script = None

    def play(self, steps):
        transcript = []
        before = None
        for step in steps:
            self.entries = []
            self.inline = [list(entry) for entry in step.get("inline", [])]
            self.script = DialogScript(step)
            if step["op"] == "create":
                self.viewer = Viewer(self)
                before = None
            else:
                self.perform(step)
            state = self.viewer.state()
            changed = {key: value for key, value in state.items() if before is None or before.get(key) != value}
            transcript.append({"log": self.entries, "changed": changed})
            before = state
        return transcript

    def log(self, entry):
        self.entries.append(entry)

    def answer(self, event):
        """Makes the host step that the running step holds ready for this event."""
        for place, (name, step) in enumerate(self.inline):
            if name == event:
                del self.inline[place]
                self.host_step(step)
                return

    def perform(self, step):
        if step["op"] in HOST_STEPS:
            self.host_step(step)
        elif step["op"] not in USER_STEPS:
            raise ValueError(f"the reference model does not play '{step['op']}'")
        elif not self.viewer.stopped:
            self.viewer.enter(USER_STEPS[step["op"]], self.viewer, step)

    def host_step(self, step):
        try:
            HOST_STEPS[step["op"]](self.viewer, step)
        except Refused:
            self.log({"comError": step["op"]})


def receive_message(viewer, step):
    kind = step.get("type", "QZWebMessage")
    if "document" in step:
        try:
            message = message_from_text(kind, step["document"])
        except RunTimeError:
            raise Refused from None
    else:
        tables = {}
        for name, table in step.get("tables", {}).items():
            tables[name] = Table(name, [dict(zip(table["cols"], row)) for row in table["rows"]])
        message = Message(kind, step.get("name", ""), step.get("props", {}), tables)
    hours, minutes, seconds = map(int, step["now"].split(":"))
    now = hours * 3600 + minutes * 60 + seconds
    viewer.receive_message(message, step.get("dataType", 0), step.get("tag", ""), now)


def receive_profile_response(viewer, step):
    text = step["resultXML"] if "resultXML" in step else result_text(step.get("error"), step.get("payload", ""))
    viewer.receive_profile_response(text, step["function"])


def set_choice(viewer, name, index):
    """Chooses one of two options or tabs; there is no other."""
    if index in (0, 1):
        setattr(viewer, name, index)


def press_view(viewer, _step):
    if viewer.view_enabled:
        viewer.view_click()


def double_click(viewer, step):
    cell = (step["row"], step["col"])
    if viewer.has_cell(step["grid"], *cell):
        mouse = (step.get("mouseRow", cell[0]), step.get("mouseCol", cell[1]))
        viewer.double_click(step["grid"], cell, mouse, step.get("button", 1))


def press_enter(viewer, step):
    cell = (step["row"], step["col"])
    if viewer.has_cell(step["grid"], *cell) and not step.get("shift", False):
        viewer.double_click(step["grid"], cell, cell, 1)


def choose_profile(viewer, step):
    if viewer.menu and 0 <= step["index"] < len(viewer.menu):
        viewer.menu_profile_click(step["index"])


HOST_STEPS = {
    "initialize": lambda viewer, step: viewer.initialize(),
    "stopControl": lambda viewer, step: viewer.stop_control(),
    "resizeControls": lambda viewer, step: viewer.resize_controls(),
    "setRegionalFormatInfo": lambda viewer, step: viewer.set_regional_format_info(step["language"]),
    "setSessionBUIDList": lambda viewer, step: viewer.set_session_buid_list(step["ids"]),
    "receiveMessage": receive_message,
    "receiveProfileResponse": receive_profile_response,
}

USER_STEPS = {
    "select": lambda viewer, step: viewer.select(step["ids"]),
    "optBU": lambda viewer, step: set_choice(viewer, "opt_bu", step["index"]),
    "optDisplay": lambda viewer, step: set_choice(viewer, "opt_display", step["index"]),
    "tab": lambda viewer, step: set_choice(viewer, "tab", step["index"]),
    "view": press_view,
    "collapse": lambda viewer, step: viewer.collapse(step["grid"], step.get("row", -1), step.get("data"), True),
    "expand": lambda viewer, step: viewer.collapse(step["grid"], step.get("row", -1), step.get("data"), False),
    "dblclick": double_click,
    "enter": press_enter,
    "techCount": lambda viewer, step: viewer.tech_count_click(),
    "about": lambda viewer, step: viewer.show_about(),
    "profilesMenu": lambda viewer, step: viewer.configure_profile_menu(),
    "menuProfile": choose_profile,
    "menuSave": lambda viewer, step: viewer.menu_save_click(),
    "menuSaveAs": lambda viewer, step: viewer.menu_save_as_click(),
    "menuManage": lambda viewer, step: viewer.choose_new_profile(""),
}
