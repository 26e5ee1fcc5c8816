#include "FtpJob.h"

void FtpJob::run(FtpConnection &connection)
{
    m_connection = &connection;
    guarded([this] { start(); });
}

void FtpJob::cleanUp()
{
    if (m_connection)
        m_connection->control().forgetHandlers();
}

void FtpJob::guarded(const Step &step)
{
    try {
        step();
    } catch (const TransferFailure &failure) {
        Q_EMIT failed(failure);
    }
}

void FtpJob::ask(const QByteArray &request, const Handler &handler, const Step &preliminary)
{
    connection().control().ask(
        request, [this, handler](const FtpReply &reply) { guarded([&] { handler(reply); }); },
        [this, preliminary] {
            if (preliminary)
                guarded(preliminary);
        });
}

void FtpJob::demand(const QByteArray &request, const Step &next)
{
    ask(request, [next](const FtpReply &reply) {
        if (!reply.isCompletion())
            throw TransferFailure::ofReply(reply);
        next();
    });
}

void FtpJob::setType(char type, const Step &next)
{
    if (connection().type == type) {
        next();
        return;
    }
    demand(QByteArray("TYPE ") + type, [this, type, next] {
        connection().type = type;
        next();
    });
}
