#include "Beep.h"

#include <QApplication>

namespace {

std::function<void()> &bell()
{
    static std::function<void()> current = QApplication::beep;
    return current;
}

} // namespace

void Beep()
{
    bell()();
}

void setBeep(std::function<void()> replacement)
{
    bell() = replacement ? std::move(replacement) : QApplication::beep;
}
