"""Profiles: the settings of the view, their exchange with the host, the menu and the dialogs."""
from basics import RunTimeError, FoldedCollection, add_new, fold, join_ids, to_boolean, to_long, trapped
from webdata import ProfileSet, find_error_table

SELECT_FIELDS = ["BUList", "SummaryOption", "DisplayByWorkOrders"]
NODE_FIELDS = ["ID", "List"]
NODE_LISTS = ["JobTypes", "BUWorkOrders", "BUPoints"]
FORBIDDEN = "/\\:*?<>\"|&',"


def parse_names(text):
    """The names of a profile-ID list, found by its four text pieces; None when one of them is missing."""
    text = text.strip(" ")
    if any(piece not in text for piece in ("</ProfileIDs>", "<ProfileIDs", "</ProfileID>", "<ProfileID>")):
        return None
    names = []
    for piece in text.split("</ProfileID>")[:-1]:
        piece = piece.strip(" ")
        place = piece.find("<ProfileID>") + 1  # 0 when it is missing, and the name still begins 11 characters on
        names.append(piece[place + 10 :].strip(" "))
    return names


class Profiles:
    """A part of the viewer."""

    def create_profiles(self):
        self.profile_set = ProfileSet()
        self.current_profile = None
        self.profile_label = None
        self.names = FoldedCollection()
        self.profiles_loaded = False
        self.requested_name = None
        self.pending_name = None
        self.menu = None
        self.last_error = 0

    def current_name(self):
        return self.current_profile.name if self.current_profile else ""

    def add_name(self, name):
        if name not in self.names:
            self.names.add(name, name)

    # The profile document

    def write_settings(self, section):
        row = section.row(1)
        row["BUList"] = join_ids(self.selected_ids())
        row["SummaryOption"] = "True" if self.opt_bu == 0 else "False"
        row["DisplayByWorkOrders"] = "True" if self.opt_display == 0 else "False"

    def write_nodes(self, section):
        for index, name in enumerate(NODE_LISTS):
            self.save_nodes_to_profile(section, name, index)

    @trapped("DLViewer.UpdateCurrentProfile")
    def update_current_profile(self, structure_only):
        if self.current_profile is None:
            return
        if not structure_only:
            section = self.current_profile.sections["DLVSelect"]
            section.complete(SELECT_FIELDS)
            self.write_settings(section)
            section = self.current_profile.sections["CollapsedNodes"]
            section.complete(NODE_FIELDS)
            if len(section.rows) != 3:
                section.rows = [{}, {}, {}]
            self.write_nodes(section)
            self.pointer = 11
        self.raise_event("PutProfiles", ProfilesXML=self.profile_set.content())

    @trapped("DLViewer.InitProfileSettings")
    def init_profile_settings(self):
        profile = self.current_profile
        if profile is None:
            return
        changed = False
        for name, fields, rows in (("DLVSelect", SELECT_FIELDS, 1), ("CollapsedNodes", NODE_FIELDS, 3)):
            if name not in profile.sections:
                profile.add_section(name, fields)
                changed = True
            if len(profile.sections[name].rows) < 1:
                profile.sections[name].rows = [{} for _ in range(rows)]
                changed = True
        if changed:
            self.update_current_profile(True)

    @trapped("DLViewer.LoadProfileSettings")
    def load_profile_settings(self):
        if self.current_profile is None:
            self.current_profile = ProfileSet().add("")
        section = self.current_profile.sections.get("DLVSelect")
        if section is None or not section.rows:
            self.opt_bu = self.opt_display = 0
            self.select_units([])
            return
        row = section.row(1)
        summary = section.value(row, "SummaryOption")
        self.opt_bu = 0 if summary == "" or to_boolean(summary) else 1
        display = section.value(row, "DisplayByWorkOrders")
        self.opt_display = 0 if display == "" or to_boolean(display) else 1
        ids = {}
        units = section.value(row, "BUList")
        if units != "":
            for piece in units.split("|"):
                add_new(ids, piece, piece)
        self.select_units(ids)
        if self.hierarchy_filled:
            self.restore_nodes("BUWorkOrders", 1)
            self.restore_nodes("BUPoints", 2)

    def select_units(self, ids):
        """Selects exactly these units, the first one when none of them is listed."""
        for item in self.list_items:
            item.selected = item.buid in ids
        if self.list_items and not self.selected_ids():
            self.list_items[0].selected = True

    # Requests

    @trapped("DLViewer.GetProfileList")
    def get_profile_list(self):
        self.pointer = 11
        self.raise_event("GetProfileList")

    @trapped("DLViewer.GetProfile")
    def get_profile(self):
        self.pointer = 11
        self.raise_event("GetProfiles", ProfileName="Default")

    @trapped("DLViewer.ChooseNewProfile")
    def choose_new_profile(self, name):
        if name == "":
            self.manage_profiles()
            return
        self.requested_name = name
        self.pointer = 11
        self.raise_event("GetProfiles", ProfileName=name)

    @trapped("DLViewer.SaveProfileAs")
    def save_profile_as(self, name):
        profiles = ProfileSet()
        profile = profiles.add(name)
        section = profile.add_section("DLVSelect", SELECT_FIELDS)
        section.add_row()
        self.write_settings(section)
        section = profile.add_section("CollapsedNodes", NODE_FIELDS)
        section.rows = [{}, {}, {}]
        self.write_nodes(section)
        self.pending_name = name
        self.pointer = 11
        self.raise_event("SaveProfileAs", ProfilesXML=profiles.content())

    def change_names(self, event, name):
        self.pointer = 11
        self.raise_event(event, ProfileName=name)

    # Answers

    def parse_result(self, text):
        """Shows the host's error; True when there was one."""
        self.last_error = 0
        try:
            table = find_error_table(text)
            if table is not None:
                number = to_long(table.field(1, "ErrorNumber"))
                if number != 0:
                    self.last_error = number
                    description = table.field(1, "ErrorDescription")
                    self.report(RunTimeError(number, description), "DLViewer.ReceiveProfileResponse")
        except RunTimeError:
            pass
        return self.last_error != 0

    @trapped("DLViewer.ReceiveProfileResponse")
    def apply_response(self, text, function):
        self.pointer = 0
        if function == "GetProfileList":
            self.list_received(text)
        elif function == "GetProfiles":
            if self.profiles_loaded:
                self.later_profiles_received(text)
            else:
                self.first_profiles_received(text)
        elif function == "PutProfiles":
            if not self.parse_result(text) and self.profiles_loaded:
                self.view_click()
        elif function in ("SaveProfileAs", "AddProfiles", "RemoveProfiles"):
            if not self.parse_result(text):
                self.names_received(function, parse_names(text) or [])

    def list_received(self, text):
        failed = self.parse_result(text)
        names = parse_names(text)
        if not failed and names is not None:
            self.names = FoldedCollection()
            for name in names:
                self.add_name(name)
        if not self.profiles_loaded:
            self.get_profile()

    @staticmethod
    def is_empty_payload(text):
        return text.strip(" ") == "" or (
            "<WebData>" in text and "<WebProfiles>" not in text and "<WebProfile>" not in text
        )

    def first_profiles_received(self, text):
        failed = self.parse_result(text)
        if not failed and not self.is_empty_payload(text):
            try:
                self.profile_set.load(text)
            except RunTimeError as error:
                self.report(error, "DLViewer.ReceiveProfileResponse")
        if not self.profile_set.profiles:
            self.profile_set.add("Default")
            self.names = FoldedCollection()
            self.add_name("Default")
        self.make_first_current()
        self.raise_event("PostRequest", Params="ClientReady")
        self.profiles_loaded = True

    def later_profiles_received(self, text):
        if self.parse_result(text) or self.is_empty_payload(text):
            return
        scratch = ProfileSet()
        scratch.load(text)
        if not scratch.exists(self.requested_name):
            return
        self.profile_set.load(text)
        self.make_first_current()
        self.profile_settings_loaded = False
        if self.hierarchy_filled:
            self.fill_summary()

    def make_first_current(self):
        self.current_profile = self.profile_set.profiles[0]
        self.profile_label = self.current_profile.name
        self.init_profile_settings()

    def names_received(self, function, names):
        for name in names:
            if function == "AddProfiles":
                self.add_name(name)
            elif function == "RemoveProfiles":
                self.names.remove(name)
            elif name == self.pending_name:
                self.add_name(name)
                self.choose_new_profile(self.pending_name)

    # The menu

    @trapped("DLViewer.SortProfiles")
    def sorted_names(self):
        result = []
        for name in self.names:
            place = 0
            while place < len(result) and fold(result[place]) < fold(name):
                place += 1
            result.insert(place, name)
        return result

    @trapped("DLViewer.ConfigureProfileMenu")
    def configure_profile_menu(self):
        if self.menu:
            self.menu = self.menu[:1]
        names = self.sorted_names()
        if names:
            current = self.current_profile
            self.menu = [[name, current is not None and name == current.name] for name in names]

    def menu_profile_click(self, index):
        caption = self.menu[index][0]
        if self.current_profile is None or caption != self.current_profile.name:
            for item in self.menu:
                item[1] = False
            self.menu[index][1] = True
        self.choose_new_profile(caption)

    def menu_save_click(self):
        self.init_profile_settings()
        self.update_current_profile(False)

    def menu_save_as_click(self):
        name = self.ask_name("EnterProfileNameSaveAs", "SaveCurrentProfileAs")
        if name is None:
            return
        if name not in self.names:
            self.save_profile_as(name)
        elif self.ask("ProfileOverwrite", "Profile : " + name):
            if name != self.current_name():
                self.save_profile_as(name)
            else:
                self.menu_save_click()

    # The dialogs; the script says what the user does in them

    def ask_name(self, prompt, title):
        """The new-profile dialog: the name, or None when it was cancelled."""
        self.log({"dialog": "frmNewProfile", "prompt": prompt, "title": title})
        for entry in self.script.name_entries():
            text = entry.get("text", "")
            if entry.get("button") == "cancel":
                return None
            if text == "":
                continue
            if text.strip(" ") == "" or any(character in FORBIDDEN for character in text):
                self.tell("EnterValidProfile", title)
            else:
                return text.strip(" ")
        return None

    def manage_profiles(self):
        current = self.current_name()
        names = FoldedCollection()
        for name in self.names:
            names.add(name, name)
        if not names:
            self.tell("CreateOneProfile", "Profiles")
        listed = list(names)
        selected = 0 if listed else -1
        if current != "" and current in listed:
            selected = listed.index(current)
        self.log({"dialog": "frmProfiles", "names": listed, "selected": selected, "enabled": selected >= 0})
        for action in self.script.actions():
            if action.get("name") in listed:
                selected = listed.index(action["name"])
            name = listed[selected] if selected >= 0 else None
            done = {
                "choose": self.choose_in_dialog,
                "new": self.new_in_dialog,
                "remove": self.remove_in_dialog,
                "close": lambda *rest: True,
            }[action["do"]](name, names)
            if done:
                return

    def choose_in_dialog(self, name, _names):
        if name is None:
            return False
        self.choose_new_profile(name)
        return True

    def new_in_dialog(self, _name, names):
        name = self.ask_name("EnterProfileName", "NewProfile")
        if name is None:
            return False
        if name in names:
            self.tell("ProfileExists", "Profiles")
            return False
        self.change_names("AddProfiles", name)
        return True

    def remove_in_dialog(self, name, _names):
        if name is None:
            return False
        if name.upper() == "DEFAULT" or name == self.current_name():
            self.tell("CannotRemoveProfile", "Profiles")
            return False
        if not self.ask("CheckRemoveProfile", "Profile : " + name):
            return False
        self.change_names("RemoveProfiles", name)
        return True
