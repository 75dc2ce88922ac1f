"""The hierarchy grids, the unit list that follows their order, and the memory of collapsed nodes."""
from basics import RunTimeError, add_new, cell_number, join_ids, rate_text, trapped
from grid import Row
from summary import add_to


class ListItem:
    """One unit in the list of units."""

    def __init__(self, buid, text, selected):
        self.buid = buid
        self.text = text
        self.selected = selected


class Hierarchy:
    """A part of the viewer."""

    def fill_hierarchy(self):
        self.hierarchy_busy = True
        try:
            self.refill_hierarchy()
        except RunTimeError as error:
            self.report(error, "DLViewer.mDLV_FillBUHierarchyGrid")
            self.end_failed_fill()

    def refill_hierarchy(self):
        if self.hierarchy_filled:
            collapsed = {index: self.save_collapsed_list(index) for index in (1, 2)}
        for index in (1, 2):
            self.build_tree(self.grids[index])
        self.fill_figures()
        if self.hierarchy_filled:
            self.restore_collapsed_list(1, collapsed[1])
            self.restore_collapsed_list(2, collapsed[2])
        else:
            self.restore_nodes("BUWorkOrders", 1)
            self.restore_nodes("BUPoints", 2)
        self.hierarchy_filled = True
        self.load_list_view()
        self.hierarchy_busy = False
        self.fill_summary()

    def build_tree(self, grid):
        grid.set_row_count(2)
        grid.filled = True
        root = Row(12, "#")
        root.cells[0] = self.bu_descriptions.get("#", "BusinessUnits")
        nodes = {}
        for buid, description in self.bu_descriptions.items():
            if buid != "#":
                nodes[buid] = Row(12, buid)
                nodes[buid].cells[0] = description
                nodes[buid].move_to(root)
        nodes["#"] = root
        for buid, parent in self.parents.items():
            if buid in nodes and parent in nodes and buid != "" and parent != "":
                if not nodes[parent].is_inside(nodes[buid]):
                    nodes[buid].move_to(nodes[parent])
        for row in reversed(root.subtree()):
            if row is not root and not row.children and self.units.item(row.data) is None:
                row.parent.children.remove(row)
        for row in root.subtree():
            row.children.sort(key=lambda child: child.cells[0])
        for row in root.subtree():
            row.node = True
            grid.rows.append(row)

    def fill_figures(self):
        self.figure_ids = join_ids(self.selection)
        for index in (1, 2):
            grid = self.grids[index]
            for buid in self.selection:
                row = grid.find(buid)
                if row is not None:
                    self.add_figures(row, 0 if index == 1 else 7, self.covered_ids(buid))
            for row in grid.rows[2:]:
                row.grey = row.cells[1] == ""

    def add_figures(self, row, first_counter, ids):
        for unit in map(self.units.item, ids):
            if unit is None:
                continue
            add_to(row, 1, unit.tech_count)
            add_to(row, 2, unit.hours_remaining)
            add_to(row, 3, unit.hours_worked)
            for status in range(7):
                add_to(row, 4 + status, unit.grand_totals[first_counter + status])
            row.cells[11] = rate_text(cell_number(row.cells[8]), cell_number(row.cells[3]))

    def fill_figures_again(self):
        for index in (1, 2):
            for row in self.grids[index].rows[2:]:
                row.cells[1:] = [""] * 11
                row.grey = False
        self.fill_figures()

    def load_list_view(self):
        kept = self.selected_ids()
        self.list_items = []
        for row in self.grids[1].rows[2:]:
            if row.data != "#" and row.data in self.session_ids:
                text = self.bu_descriptions.get(row.data, "")
                self.list_items.append(ListItem(row.data, text, row.data in kept))

    @trapped("DLViewer.SaveCollapsedList")
    def save_collapsed_list(self, index):
        rows = self.grids[index].rows
        keys = {}
        if index == 0 and len(rows) >= 4 and rows[2].collapsed:
            keys["TOTAL"] = "TOTAL"
        for row in rows[3 if index == 0 else 2 :]:
            if row.collapsed:
                keys.setdefault(row.data, row.data)
        return keys

    @trapped("DLViewer.RestoreCollapsedList")
    def restore_collapsed_list(self, index, keys):
        grid = self.grids[index]
        if index == 0 and len(grid.rows) >= 4 and "TOTAL" in keys:
            self.set_collapsed(grid.rows[2], True)
        for key in keys:
            row = grid.find(key)
            if row is not None:
                self.set_collapsed(row, True)

    @staticmethod
    def set_collapsed(row, collapsed):
        if row.node:
            row.collapsed = collapsed

    @trapped("DLViewer.ExpandNodes")
    def expand_nodes(self, index):
        rows = self.grids[index].rows
        if len(rows) > (3 if index == 0 else 2):
            for row in rows[2:]:
                self.set_collapsed(row, False)

    @trapped("DLViewer.SaveNodesToProfile")
    def save_nodes_to_profile(self, section, name, index):
        row = section.row(index + 1)
        row["ID"] = name
        row["List"] = "".join(key + "|" for key in self.save_collapsed_list(index))[:-1]

    @trapped("DLViewer.RestoreNodes")
    def restore_nodes(self, name, index):
        self.expand_nodes(index)
        section = self.current_profile.sections.get("CollapsedNodes") if self.current_profile else None
        if section is None or len(section.rows) != 3:
            return
        for row in section.rows:
            if section.value(row, "ID").strip(" ") == name:
                self.set_collapsed_nodes(index, section.value(row, "List"))
                return

    @trapped("DLViewer.SetCollapsedNodes")
    def set_collapsed_nodes(self, index, text):
        if text == "":
            return
        keys = {}
        for piece in text.split("|"):
            add_new(keys, piece, piece)
        self.expand_nodes(index)
        self.restore_collapsed_list(index, keys)
