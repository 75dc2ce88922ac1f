// Gives back what the compiler's run-time library takes for the process and keeps when this library is
// unloaded before the process ends: a slot of the threads' storage, the data of this thread, the spare memory
// for exceptions. Hosts load and unload a control thousands of times; the system has about a thousand slots.
#pragma once

namespace dlv {

/// DllMain says that the library is being unloaded. What is given back goes after the last static object.
void NoteUnloading();

}  // namespace dlv
