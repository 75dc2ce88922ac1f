"""The summary grid and the figures of the productivity panel."""
from basics import RunTimeError, cell_number, join_ids, rate_text, trapped

PANEL = (
    "lblTechCount lblHrsWorked lblHrsRemaining lblWODone lblWOOpen lblPtsDone lblPtsOpen "
    "lblWOsPerHrToday lblWOsPerHrReq lblPtsPerHrToday lblPtsPerHrReq"
).split()


def add_to(row, column, value):
    row.cells[column] = str(cell_number(row.cells[column]) + value)


class Summary:
    """A part of the viewer."""

    def fill_summary(self):
        if not self.profile_settings_loaded:
            self.load_profile_settings()
        self.show_bus(self.units)
        self.grid_filled = True
        self.profile_settings_loaded = True

    def show_bus(self, model):
        self.single_busy = True
        try:
            self.refill_summary(model)
        except RunTimeError as error:
            self.report(error, "DLViewer.ShowBUs")
            self.end_failed_fill()

    def refill_summary(self, model):
        grid = self.grids[0]
        self.last_mode = self.opt_bu
        if self.list_items:
            self.selection = self.selected_ids()
            self.bu_set = self.selected_ids() if self.opt_bu == 0 else self.aggregate_ids()
        collapsed = self.save_collapsed_list(0) if self.grid_filled else None
        self.panel = dict.fromkeys(PANEL, "0")
        grid.set_row_count(2)
        grid.filled = True
        units = [unit for unit in map(model.item, self.bu_set) if unit is not None]
        for unit in units:
            self.add_to_panel(unit)
            self.add_job_rows(grid, unit)
        if len(grid.rows) == 2:
            self.write_empty_total(grid)
        else:
            grid.insert(2)
            grid.sort(2, len(grid.rows) - 1, 1, 2)
            self.insert_groups(grid)
            self.add_totals(grid, units)
            count = self.max_class_count(model)
            grid.sort(3, count + 2, 2, 3)
            self.clean_up(grid)
        if self.grid_filled:
            self.restore_collapsed_list(0, collapsed)
        else:
            self.restore_nodes("JobTypes", 0)
        if self.figure_ids != join_ids(self.selection):
            self.fill_figures_again()
        self.single_busy = False
        self.view_enabled = True

    def add_to_panel(self, unit):
        panel = self.panel
        figures = [unit.tech_count, unit.hours_worked, unit.hours_remaining]
        figures += [unit.grand_totals[index] for index in (4, 0, 11, 7)]
        for name, figure in zip(PANEL, figures):
            panel[name] = str(cell_number(panel[name]) + figure)
        for name, count, hours in (
            ("lblWOsPerHrToday", "lblWODone", "lblHrsWorked"),
            ("lblPtsPerHrToday", "lblPtsDone", "lblHrsWorked"),
            ("lblWOsPerHrReq", "lblWOOpen", "lblHrsRemaining"),
            ("lblPtsPerHrReq", "lblPtsOpen", "lblHrsRemaining"),
        ):
            panel[name] = rate_text(cell_number(panel[count]), cell_number(panel[hours]))

    def add_job_rows(self, grid, unit):
        for job_type in unit.job_types:
            for job_class in job_type.job_classes:
                key = job_type.code + "|" + job_class.code
                row = grid.find(key)
                if row is None:
                    row = grid.append(key)
                    row.cells[1] = self.type_description(job_type.code)
                    row.cells[2] = self.class_description(job_class.code)
                for index in range(14):
                    add_to(row, index + 3, job_class.counters[index])

    @staticmethod
    def write_empty_total(grid):
        row = grid.append()
        row.cells = ["", "", "Total"] + ["0"] * 14
        row.grey = row.bold = True

    @staticmethod
    def insert_groups(grid):
        position = 2
        while position < len(grid.rows):
            text = grid.rows[position].cells[1]
            end = position
            while end < len(grid.rows) and grid.rows[end].cells[1] == text:
                end += 1
            run = grid.rows[position:end]
            group = grid.insert(position)
            group.node = group.grey = group.bold = True
            group.cells[1] = text
            for column in range(3, 17):
                total = sum(cell_number(row.cells[column]) for row in run)
                group.cells[column] = str(total) if total != 0 else ""
            position = end + 1

    def add_totals(self, grid, units):
        grid.rows[2].cells[1] = "Total"
        for unit in units:
            if len(grid.rows) > 2:
                for index in range(14):
                    add_to(grid.rows[2], index + 3, unit.grand_totals[index])
        for unit in units:
            for job_class in unit.total.job_classes:
                key = "|" + job_class.code
                row = grid.find(key)
                if row is None:
                    row = grid.insert(3, key)
                    row.cells[1] = "Total"
                    row.cells[2] = self.class_description(job_class.code)
                for index in range(14):
                    add_to(row, index + 3, job_class.counters[index])

    @trapped("DLViewer.GetMaxClassCnt")
    def max_class_count(self, model):
        known = [model.item(buid) for buid in self.bu_set if model.item(buid) is not None]
        return max((len(unit.total.job_classes) for unit in known), default=0)

    @staticmethod
    def clean_up(grid):
        for position in range(len(grid.rows) - 1, 1, -1):
            if grid.rows[position].cells[3] == "":
                del grid.rows[position]
        for position in range(len(grid.rows) - 1, 2, -1):
            following = grid.rows[position + 1].data if position + 1 < len(grid.rows) else ""
            if grid.rows[position].node and "|" in following:
                grid.rows[position].data = following.split("|")[0]
