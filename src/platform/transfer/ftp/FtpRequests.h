#pragma once

#include "FtpJob.h"

#include <QByteArrayList>

/// A job without data: requests one after the other, each of which the server has to agree to.
class FtpRequests : public FtpJob
{
    Q_OBJECT

public:
    enum class Response {
        None,
        LastMessage, ///< what is behind the last reply's code
    };

    explicit FtpRequests(const QByteArrayList &requests, Response response = Response::None);

    /// The type is set to "I" before the first request, without which some servers report no size.
    void setBinary() { m_isBinary = true; }

protected:
    void start() override;

private:
    void askNext();
    void answered(const FtpReply &reply);

    QByteArrayList m_requests;
    Response m_response;
    bool m_isBinary = false;
};
