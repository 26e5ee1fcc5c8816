#pragma once

/// A system bus of the test program's own, on which there is nothing but what a test starts. The first object
/// takes it in place of the computer's, for the life of the process: before the first use of the bus.
struct PrivateSystemBus
{
    PrivateSystemBus();
};
