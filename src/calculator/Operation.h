#pragma once

/// What may wait for its right operand, in the order of the action keys. None is what the clear key leaves.
enum class Operation { Equals, Add, Subtract, Multiply, Divide, Percent, None };
