#pragma once

namespace zentrel {

// Sets gRPC up for the whole process, before anything else of it is used; once, however often it is called.
//
// The library goes down with its last object and waits up to ten seconds for its threads then. A program
// that only drops a connection must not wait for that; so the library stays until the process ends. And it is
// quiet: failures are told by results, and who is at the other end must not write to anybody's terminal.
// Names are looked up as the rest of the system does; the library's own way asks the net, for 3 s where it
// does not answer, even for names that the hosts file has.
void KeepLibrary();

}  // namespace zentrel
