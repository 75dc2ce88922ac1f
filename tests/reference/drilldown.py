"""Requests for the records behind a figure."""
from basics import join_ids, trapped

STATUSES = ["WOOpen", "WOWarning", "WOJeopardy", "WOLate", "WOCompleted", "WOCanceled", "WONotDone"]


class DrillDown:
    """A part of the viewer."""

    def listed(self, ids):
        known = [item.buid for item in self.list_items]
        return join_ids(buid for buid in ids if buid in known)

    def raise_details(self, **fields):
        self.raise_event("GetDetails", JeopardyThreshold=self.threshold, **fields)

    @trapped("DLViewer.lblTechCount_Click")
    def tech_count_click(self):
        self.raise_details(Info="USER", BUID=self.listed(self.bu_set))

    @trapped("DLViewer.vsFlex_DblClick")
    def double_click(self, index, cell, mouse, button):
        """cell and mouse are pairs of row and column: the current cell and the cell under the mouse."""
        rows = self.grids[index].rows
        row, column = cell
        if button != 1 or len(rows) < 3 or column != mouse[1]:
            return
        if row != mouse[0] and not (mouse[0] == len(rows) - 1 and row == 2):
            return
        if index == 0:
            self.summary_details(rows[row], column)
        elif row >= 2 and not (row == mouse[0] and rows[row].cells[1] == ""):
            self.hierarchy_details(rows[row], column)

    def summary_details(self, row, column):
        if column < 2:
            return
        fields = {"Info": "WORKORDER", "BUID": self.listed(self.bu_set)}
        if row.data != "":
            pieces = row.data.split("|")
            fields["JobType"] = pieces[0]
            if len(pieces) == 2:
                fields["JobClass"] = pieces[1]
        if column >= 3:
            fields["JobStatus"] = STATUSES[(column - 3) % 7]
        self.raise_details(**fields)

    def hierarchy_details(self, row, column):
        buid = self.listed(self.covered_ids(row.data))
        if column == 1:
            self.raise_details(Info="USER", BUID=buid)
        elif 4 <= column <= 10:
            self.raise_details(Info="WORKORDER", BUID=buid, JobStatus=STATUSES[column - 4])
