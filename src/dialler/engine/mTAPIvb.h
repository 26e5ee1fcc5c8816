#pragma once

#include <QString>

struct LineMessage;

/// What CvbTAPILine has outside of its objects.
namespace mTAPIvb {

/// Hands a message of the line service on to the CvbTAPILine whose address the line was opened with; a
/// message without one is ignored.
void lineCallback(const LineMessage &message);

/// The text for a LineError. "Unknown Error" for 0 and for any code that has none.
QString ErrorString(qint32 code);

} // namespace mTAPIvb
