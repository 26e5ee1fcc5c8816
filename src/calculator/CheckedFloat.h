#pragma once

/// A 64-bit float that keeps the first error among the operations that made it, as the processor's status
/// does. Calculating never throws.
class CheckedFloat
{
public:
    CheckedFloat(double value)
        : m_value(value)
    {}

    /// An infinity or not a number after an error.
    double value() const { return m_value; }
    /// 0, ErrorNumber::DivisionByZero, or ErrorNumber::Overflow, which an invalid operation (0 / 0) counts
    /// as.
    int error() const { return m_error; }

    friend CheckedFloat operator+(const CheckedFloat &a, const CheckedFloat &b);
    friend CheckedFloat operator-(const CheckedFloat &a, const CheckedFloat &b);
    friend CheckedFloat operator*(const CheckedFloat &a, const CheckedFloat &b);
    friend CheckedFloat operator/(const CheckedFloat &a, const CheckedFloat &b);

private:
    CheckedFloat(double value, int error, const CheckedFloat &a, const CheckedFloat &b);

    double m_value;
    int m_error = 0;
};
