#pragma once

/// One row of a window's command table: what is chosen, and the handler that it runs.
template<class Window>
struct CommandRow
{
    constexpr CommandRow(const char *command, void (Window::*handler)())
        : name(command)
        , run(handler)
    {}
    constexpr CommandRow(const char *array, void (Window::*handler)(int index))
        : name(array)
        , runMember(handler)
    {}

    const char *name; ///< of a menu item, a button, a toolbar's key, or a control array of buttons
    void (Window::*run)() = nullptr;
    void (Window::*runMember)(int index) = nullptr; ///< of a control array
};
