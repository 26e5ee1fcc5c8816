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

void FtpJob::guarded(const std::function<void()> &step)
{
    try {
        step();
    } catch (const TransferFailure &failure) {
        Q_EMIT failed(failure);
    }
}

void FtpJob::ask(const QByteArray &request, const FtpControl::Handler &handler,
                 const FtpControl::Beginning &beginning)
{
    connection().control().ask(
        request, [this, handler](const FtpReply &reply) { guarded([&] { handler(reply); }); },
        [this, beginning] {
            if (beginning)
                guarded(beginning);
        });
}

void FtpJob::demand(const QByteArray &request, const FtpControl::Beginning &next)
{
    ask(request, [next](const FtpReply &reply) {
        if (!reply.isCompletion())
            throw TransferFailure::ofReply(reply);
        next();
    });
}

void FtpJob::setType(char type, const FtpControl::Beginning &next)
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
