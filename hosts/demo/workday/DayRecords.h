// Answers what the control asks for with `GetDetails`: the work orders or the technicians of a working day
// that a figure has counted. There are as many as the figure says, provided that the day stands as it did
// when the figures were made.
#pragma once

#include "hosts/demo/workday/RecordTable.h"
#include "hosts/demo/workday/WorkingDay.h"
#include "webdata/DLVParams.h"

namespace dlv::demo {

/// Looks at `Info`, `BUID`, `JobType`, `JobClass` and `JobStatus`; all but the units are no limit when empty.
/// What is not of this company matches nothing. In English.
RecordTable RecordsBehind(const WorkingDay& day, const DLVParams& asked);

}  // namespace dlv::demo
