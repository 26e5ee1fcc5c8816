#pragma once

class Connection;

/// As long as it lives, all that a connection reads is of one state of its file, which no other process can
/// change meanwhile. Files that may only be read have one too.
class Snapshot
{
public:
    /// Throws RuntimeError.
    explicit Snapshot(Connection &connection);
    ~Snapshot();
    Snapshot(const Snapshot &) = delete;
    Snapshot &operator=(const Snapshot &) = delete;

private:
    Connection &m_connection;
};
