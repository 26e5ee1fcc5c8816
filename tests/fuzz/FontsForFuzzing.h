#pragma once

#include <QGuiApplication>

/// Texts of metafiles need fonts, and these an application.
class FontsForFuzzing
{
public:
    FontsForFuzzing()
        : m_application(start(m_count), m_names)
    {}

private:
    static int &start(int &count)
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return count;
    }

    int m_count = 1;
    char m_name[5] = "fuzz";
    char *m_names[2] = {m_name, nullptr};
    QGuiApplication m_application;
};
