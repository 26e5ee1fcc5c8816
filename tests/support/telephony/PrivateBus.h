#pragma once

/// A system bus of the test program's own, on which there is nothing but what a test starts.
namespace PrivateBus {

/// Takes it in place of the computer's, for the life of the process. Before the first use of the bus.
void use();

} // namespace PrivateBus
