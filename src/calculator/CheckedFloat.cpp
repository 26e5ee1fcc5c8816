#include "CheckedFloat.h"

#include "RuntimeError.h"

#include <cmath>

namespace {

/// An infinity that was an operand already, and what is not a number already, are no new error.
int errorOf(double value, double a, double b)
{
    if (std::isnan(value))
        return std::isnan(a) || std::isnan(b) ? 0 : ErrorNumber::Overflow;
    return std::isinf(value) && std::isfinite(a) && std::isfinite(b) ? ErrorNumber::Overflow : 0;
}

int errorOfQuotient(double value, double a, double b)
{
    const bool isDivisionByZero = b == 0 && a != 0 && std::isfinite(a);
    return isDivisionByZero ? ErrorNumber::DivisionByZero : errorOf(value, a, b);
}

} // namespace

CheckedFloat::CheckedFloat(double value, int error, const CheckedFloat &a, const CheckedFloat &b)
    : m_value(value)
    , m_error(error)
{
    if (b.m_error != 0)
        m_error = b.m_error;
    if (a.m_error != 0)
        m_error = a.m_error;
}

CheckedFloat operator+(const CheckedFloat &a, const CheckedFloat &b)
{
    const double sum = a.m_value + b.m_value;
    return {sum, errorOf(sum, a.m_value, b.m_value), a, b};
}

CheckedFloat operator-(const CheckedFloat &a, const CheckedFloat &b)
{
    const double difference = a.m_value - b.m_value;
    return {difference, errorOf(difference, a.m_value, b.m_value), a, b};
}

CheckedFloat operator*(const CheckedFloat &a, const CheckedFloat &b)
{
    const double product = a.m_value * b.m_value;
    return {product, errorOf(product, a.m_value, b.m_value), a, b};
}

CheckedFloat operator/(const CheckedFloat &a, const CheckedFloat &b)
{
    const double quotient = a.m_value / b.m_value;
    return {quotient, errorOfQuotient(quotient, a.m_value, b.m_value), a, b};
}
