#pragma once

class QString;

/// An unexpected Qt warning fails the running test.
namespace QtMessages {

void install();

/// Lets warnings that contain \a part pass until the end of the test.
void expect(const QString &part);
void expectNone();

} // namespace QtMessages
