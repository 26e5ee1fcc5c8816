#pragma once

namespace TransferState {

/// What a session reports, in this order. Requesting to ResponseReceived repeat with each request that goes
/// to the server; the last state of a command is Error or ResponseCompleted.
enum State {
    ResolvingHost = 1,
    HostResolved,
    Connecting,
    Connected,
    Requesting,
    RequestSent,
    ReceivingResponse,
    ResponseReceived,
    Disconnecting,
    Disconnected, ///< also when the server ends the connection between two commands
    Error,        ///< ResponseCode and ResponseInfo say why
    ResponseCompleted,
};

} // namespace TransferState
