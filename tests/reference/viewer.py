"""The control: public methods, status line, what a user can do, and the state that a transcript shows."""
from pathlib import Path

from basics import Refused, RunTimeError, Stopped, add_new, checked_long, join_ids
from controller import Controller
from drilldown import DrillDown
from grid import Grid
from hierarchy import Hierarchy
from profiles import Profiles
from summary import Summary

VERSION = (Path(__file__).resolve().parents[2] / "VERSION").read_text().strip()
COMMENTS = "Shows in real time how productive the business units of a field service are."
ABOUT_TEXTS = {
    "EN": ("Real-Time BusinessUnit Productivity", "Copyright © Dashlon. All rights reserved."),
    "PO": ("Produtividade de Hora Real de Unidades de Negócios", "Copyright © Dashlon. Todos os direitos reservados."),
    "SP": ("Productividad de Hora Real de Unidades de Negocios",
           "Copyright © Dashlon. Todos los derechos reservados."),
}


class Viewer(Controller, Summary, Hierarchy, DrillDown, Profiles):
    """One control. `host` shows what it raises and opens, and may call it back from there."""

    def __init__(self, host):
        self.host = host
        self.initialized = self.stopped = False
        self.session_ids = {}
        self.status = {"key": "", "colour": None, "visible": None}
        self.grids = [Grid(17), Grid(12), Grid(12)]
        self.panel = None
        self.list_items = []
        self.selection = []
        self.bu_set = []
        self.figure_ids = ""
        self.opt_bu = self.opt_display = self.tab = self.last_mode = self.pointer = 0
        self.view_enabled = False
        self.hierarchy_filled = self.grid_filled = self.profile_settings_loaded = False
        self.create_controller()
        self.create_profiles()

    def show_about(self):
        description, rights = ABOUT_TEXTS.get(self.language, ("", ""))
        self.log({"dialog": "frmGenAbout", "title": "AboutDLV", "product": "Dashlon Viewer", "description": description,
                  "comments": COMMENTS, "rights": rights, "version": VERSION})

    # Towards the host and the user

    def log(self, entry):
        self.host.log(entry)

    def raise_event(self, name, **fields):
        shown = {key: value for key, value in fields.items() if value != ""}
        self.log({"event": name, "fields": shown})
        self.host.answer(name)
        self.end_when_stopped()

    def report(self, error, location):
        self.log({"error": error.number, "location": location, "description": error.description})
        self.host.answer("#error")
        self.end_when_stopped()

    def end_when_stopped(self):
        if self.stopped:
            raise Stopped

    def tell(self, box, title):
        self.log({"box": box, "buttons": "ok", "title": title})

    def ask(self, box, title):
        self.log({"box": box, "buttons": "yesno", "title": title})
        return self.script.confirmed()

    @property
    def script(self):
        return self.host.script

    def enter(self, procedure, *arguments):
        """Runs what a host or a user started; a control that was stopped inside just ends it."""
        try:
            procedure(*arguments)
        except Stopped:
            pass

    def check_running(self):
        if not self.initialized or self.stopped:
            raise Refused

    # The methods

    def initialize(self):
        if self.initialized or self.stopped:
            raise Refused
        self.initialized = True
        self.pointer = 11
        self.opt_bu = self.opt_display = 0
        self.grids[0].set_row_count(12)
        self.grids[1].set_row_count(2)
        self.grids[2].set_row_count(2)
        self.show_status("msg-WaitingforDLVData", False)

    def stop_control(self):
        if self.initialized and not self.stopped:
            self.stopped = True
            self.view_enabled = False

    def resize_controls(self):
        if self.stopped:
            raise Refused

    def set_regional_format_info(self, language):
        if self.stopped:
            raise Refused
        self.language = language

    def set_session_buid_list(self, ids):
        self.check_running()
        self.session_ids = {}
        try:
            for buid in ids:
                add_new(self.session_ids, buid, buid)
        except RunTimeError:
            raise Refused from None
        self.profiles_loaded = False
        self.enter(self.get_profile_list)

    def receive_message(self, message, data_type, tag, now):
        self.check_running()
        check_long(data_type)
        if tag is None:
            raise Refused
        self.enter(self.dispatch_message, message, now)

    def receive_profile_response(self, text, function):
        self.check_running()
        self.enter(self.apply_response, text, function)

    def show_status(self, key, is_error):
        self.status = {"key": key, "colour": "red" if is_error else "blue", "visible": True}

    def hide_status(self):
        self.status = {"key": "", "colour": "blue", "visible": False}

    # What a user does

    def view_click(self):
        if self.opt_bu != self.last_mode:
            self.fill_summary()
            return
        ids = self.selected_ids()
        if len(ids) != len(self.selection) or join_ids(ids) != join_ids(self.selection):
            self.fill_summary()

    def select(self, ids):
        for item in self.list_items:
            item.selected = item.buid in ids

    def find_node(self, index, number, data):
        if index not in (0, 1, 2):
            return None
        grid = self.grids[index]
        if data is not None:
            row = grid.rows[2] if index == 0 and data == "TOTAL" and len(grid.rows) > 2 else grid.find(data)
        else:
            row = grid.rows[number] if 0 <= number < len(grid.rows) else None
        return row if row is not None and row.node else None

    def collapse(self, index, number, data, collapsed):
        row = self.find_node(index, number, data)
        if row is not None:
            row.collapsed = collapsed

    def has_cell(self, index, row, column):
        if index not in (0, 1, 2):
            return False
        return 0 <= row < len(self.grids[index].rows) and 0 <= column < self.grids[index].columns

    # The state

    def current_grid(self):
        return 0 if self.tab == 0 else 1 + self.opt_display

    def state(self):
        if self.stopped:
            return {"viewEnabled": False, "stopped": True}
        return {
            "status": dict(self.status),
            "panel": dict(self.panel) if self.panel else None,
            "units": [[item.buid, item.text, item.selected] for item in self.list_items],
            "grid0": [summary_row(row) for row in self.grids[0].rows[2:]] if self.grids[0].filled else None,
            "grid1": [hierarchy_row(row) for row in self.grids[1].rows[2:]],
            "grid2": [hierarchy_row(row) for row in self.grids[2].rows[2:]],
            "mode": self.opt_bu,
            "display": self.opt_display,
            "currentGrid": self.current_grid(),
            "viewEnabled": self.view_enabled,
            "pointer": self.pointer,
            "profile": self.profile_label,
            "names": list(self.names),
            "menu": [list(item) for item in self.menu] if self.menu is not None else None,
            "refresh": dict(self.refresh),
            "stopped": False,
        }


def summary_row(row):
    shown = {"data": row.data, "cells": list(row.cells), "grey": row.grey, "bold": row.bold}
    if row.node:
        shown["collapsed"] = row.collapsed
    return shown


def hierarchy_row(row):
    return {
        "data": row.data,
        "cells": list(row.cells),
        "grey": row.grey,
        "level": row.level,
        "collapsed": row.collapsed,
    }


def check_long(value):
    """A variant that must convert to a 32-bit integer, or the call fails."""
    if value is None:
        raise Refused
    try:
        checked_long(round(float(value)))
    except (ValueError, OverflowError, RunTimeError):
        raise Refused from None
