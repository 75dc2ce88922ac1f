"""The outline grid: rows with cells and row data, the two header rows included."""


class Row:
    """One row. A node can be collapsed; level and children count in the hierarchy grids only."""

    def __init__(self, columns, data=""):
        self.data = data
        self.cells = [""] * columns
        self.grey = False
        self.bold = False
        self.node = False
        self.collapsed = False
        self.parent = None
        self.children = []

    @property
    def level(self):
        return 0 if self.parent is None else self.parent.level + 1

    def subtree(self):
        rows = [self]
        for child in self.children:
            rows += child.subtree()
        return rows

    def is_inside(self, ancestor):
        row = self
        while row is not None:
            if row is ancestor:
                return True
            row = row.parent
        return False

    def move_to(self, parent):
        if self.parent is not None:
            self.parent.children.remove(self)
        self.parent = parent
        parent.children.append(self)


class Grid:
    def __init__(self, columns):
        self.columns = columns
        self.rows = []
        self.filled = False

    def set_row_count(self, count):
        self.rows = self.rows[:count]
        while len(self.rows) < count:
            self.rows.append(Row(self.columns))

    def insert(self, position, data=""):
        self.rows.insert(position, Row(self.columns, data))
        return self.rows[position]

    def append(self, data=""):
        return self.insert(len(self.rows), data)

    def find(self, data):
        """The first row with this row data, None when there is none; rows without row data never match."""
        for row in self.rows[2:]:
            if data != "" and row.data == data:
                return row
        return None

    def sort(self, first, last, *columns):
        """Sorts the rows from first to last, both counted in, by exact text; equal rows keep their order."""
        block = self.rows[first : last + 1]
        block.sort(key=lambda row: [row.cells[column] for column in columns])
        self.rows[first : last + 1] = block
