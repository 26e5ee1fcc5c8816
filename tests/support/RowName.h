#pragma once

#include <gtest/gtest.h>
#include <string>

/// Names an instance of a parametrised test by the name of its row, for any kind of row.
struct RowName
{
    template<class Row>
    std::string operator()(const testing::TestParamInfo<Row> &info) const
    {
        return info.param.name;
    }
};
