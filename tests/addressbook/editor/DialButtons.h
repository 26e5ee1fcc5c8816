#pragma once

#include <gtest/gtest.h>

/// A dial button and the box whose number it dials.
struct DialButtonRow
{
    const char *name;
    const char *box;
};

inline const auto dialButtonRows =
    testing::Values(DialButtonRow{"Command1", "txtHPhone1"}, DialButtonRow{"Command2", "txtHPhone2"},
                    DialButtonRow{"Command3", "txtMobile"}, DialButtonRow{"Command4", "txtBPhone1"},
                    DialButtonRow{"Command5", "txtBPhone2"}, DialButtonRow{"Command6", "txtPager"});
