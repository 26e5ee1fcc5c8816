#pragma once

enum class FormState { Normal = 0, Minimized = 1, Maximized = 2 };
