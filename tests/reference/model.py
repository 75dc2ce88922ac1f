"""Business units, job types and job classes with their counters and totals."""
from basics import FoldedCollection, RunTimeError, checked_long, to_long, trapped

COUNTERS = (
    "WOOpen WOWarning WOJeopardy WOLate WOCompleted WOCanceled WONotDone "
    "PtsOpen PtsWarning PtsJeopardy PtsLate PtsCompleted PtsCanceled PtsNotDone"
).split()


class JobClass:
    def __init__(self, code):
        self.code = code
        self.counters = [0] * 14


class JobType:
    def __init__(self, code):
        self.code = code
        self.job_classes = FoldedCollection()

    def add_job_class(self, row):
        code = row.field("JobClass")
        if code not in self.job_classes:
            job_class = JobClass(row.field("JobClass"))
            for index, column in enumerate(COUNTERS):
                job_class.counters[index] = to_long(row.field(column))
            self.job_classes.add(code, job_class)

    def add_total_class(self, code):
        if code not in self.job_classes:
            self.job_classes.add(code, JobClass(code))


class BusinessUnit:
    def __init__(self, row, report):
        self.report = report
        self.buid = row.field("BUID")
        self.description = row.field("BUDesc")
        self.tech_count = to_long(row.field("TechCount"))
        self.hours_worked = to_long(row.field("HoursWorked"))
        self.hours_remaining = to_long(row.field("HoursRemaining"))
        self.job_types = FoldedCollection()
        self.total = JobType("TOTAL")
        self.grand_totals = [0] * 14

    def add_job_type(self, row):
        code = row.field("JobType")
        job_type = self.job_types.item(code)
        if job_type is None:
            job_type = self.job_types.add(code, JobType(row.field("JobType")))
        job_type.add_job_class(row)

    @trapped("BusinessUnit.CalcTotal")
    def calc_total(self):
        for job_type in self.job_types:
            for job_class in job_type.job_classes:
                self.total.add_total_class(job_class.code)
        if len(self.total.job_classes) < 1:
            return
        positions = {job_class.code: place for place, job_class in enumerate(self.total.job_classes)}
        sums = [[0] * 14 for _ in positions]
        for job_type in self.job_types:
            for index in range(14):
                for job_class in job_type.job_classes:
                    if job_class.code not in positions:
                        raise RunTimeError(9)
                    place = positions[job_class.code]
                    sums[place][index] = checked_long(sums[place][index] + job_class.counters[index])
                    self.grand_totals[index] = checked_long(self.grand_totals[index] + job_class.counters[index])
        for index in range(14):
            for job_class in self.total.job_classes:
                job_class.counters[index] = sums[positions[job_class.code]][index]
