"""The data controller: messages, code lookups, loading, refresh times and the lists of chosen units."""
from basics import FoldedCollection, RunTimeError, add_new, leading_number, trapped
from model import BusinessUnit
from webdata import TableRow


class Controller:
    """A part of the viewer; `now` is the clock of the call in seconds of the day."""

    def create_controller(self):
        self.language = ""
        self.units = FoldedCollection()
        self.bu_descriptions = {}
        self.parents = {}
        self.job_type_descriptions = {}
        self.job_class_descriptions = {}
        self.time_formats = {}
        self.threshold = ""
        self.single_busy = False
        self.hierarchy_busy = False
        self.refresh = {"format": None, "interval": None, "last": None, "next": None, "visible": False}

    def dispatch_message(self, message, now):
        if message.kind != "QZWebMessage":
            return
        if message.name == "DLVData":
            if not self.single_busy and not self.hierarchy_busy:
                self.single_busy = self.hierarchy_busy = True
                self.load_data(message, now)
                self.hide_status()
        elif message.name == "DLVServerStopped":
            self.show_status("msg-DLVServerDown", True)

    def load_data(self, message, now):
        try:
            business_units, job_types, job_classes, formats = (
                message.table(name) for name in ("BusinessUnits", "JobTypes", "JobClasses", "RegionalFormats")
            )
            self.load_regional_formats(formats)
            self.load_lookups(business_units, job_types, job_classes)
            general = message.table("BUGeneralInfo")
            details = message.table("BUDetailsInfo")
            self.load_bu_data(general, details)
            self.fill_hierarchy()
            self.update_refresh_times(message, now)
            self.threshold = message.property("tqJeopardyThreshold")
        except RunTimeError as error:
            self.report(error, "cDLVController.LoadData")
            self.end_failed_fill()

    def end_failed_fill(self):
        self.single_busy = self.hierarchy_busy = False
        self.view_enabled = True

    def load_regional_formats(self, table):
        self.time_formats.clear()
        self.load_lookup(self.time_formats, table, "languageCode", "timeformat")

    @staticmethod
    def load_lookup(lookup, table, key, value):
        lookup.clear()
        for row in range(1, table.row_count + 1):
            add_new(lookup, table.field(row, key), table.field(row, value))

    def load_lookups(self, business_units, job_types, job_classes):
        self.load_lookup(self.bu_descriptions, business_units, "BUID", "BUDesc")
        self.load_lookup(self.parents, business_units, "BUID", "ParentBUID")
        self.load_lookup(self.job_type_descriptions, job_types, "JobType", "JobTypeDesc")
        self.load_lookup(self.job_class_descriptions, job_classes, "JobClass", "JobClassDesc")

    @trapped("cDLVController.LoadBUData")
    def load_bu_data(self, general, details):
        self.units = FoldedCollection()
        for row in range(1, general.row_count + 1):
            buid = general.field(row, "BUID")
            if self.units.item(buid) is None:
                self.units.add(buid, BusinessUnit(TableRow(general, row), self.report))
        for row in range(1, details.row_count + 1):
            unit = self.units.item(details.field(row, "BUID"))
            if unit is not None:
                unit.add_job_type(TableRow(details, row))
        for unit in self.units:
            unit.calc_total()

    def update_refresh_times(self, message, now):
        if self.language in self.time_formats:
            time_format = self.time_formats[self.language]
        else:
            time_format = self.time_formats.get("EN", "")
        self.refresh["format"] = time_format
        self.refresh["last"] = clock_text(now)
        interval = leading_number(message.property("tqDBRefreshInterval"))
        if abs(interval) == float("inf"):
            raise RunTimeError(6)
        self.refresh["interval"] = interval
        self.refresh["next"] = clock_text(round(now + interval * 60) % 86400)
        self.refresh["visible"] = True

    def selected_ids(self):
        return [item.buid for item in self.list_items if item.selected]

    def aggregate_ids(self):
        ids = {}
        for buid in self.selected_ids():
            for covered in self.covered_ids(buid):
                ids.setdefault(covered, covered)
        return list(ids)

    def covered_ids(self, buid):
        """The unit and all its descendants, as the pieces of one text with commas."""
        pieces = (buid + "," + self.descendants_text(buid)).split(",")[:-1]
        return list(dict.fromkeys(pieces))

    def descendants_text(self, buid, seen=None):
        """Direct children first, then each child's own; a unit in a circle is named once."""
        seen = {buid} if seen is None else seen
        children = [unit for unit, parent in self.parents.items() if parent == buid and unit not in seen]
        seen.update(children)
        text = "".join(child + "," for child in children)
        return text + "".join(self.descendants_text(child, seen) for child in children)

    def type_description(self, code):
        return self.job_type_descriptions.get(code, "") or code

    def class_description(self, code):
        return self.job_class_descriptions.get(code, "") or code


def clock_text(seconds):
    return f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02}"
