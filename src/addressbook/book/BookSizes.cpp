#include "BookSizes.h"

#include <algorithm>

BookSizes BookSizes::of(double width, double height, double treeTop)
{
    const double treeHeight = height - 2100;
    return {.listWidth = std::max(0.0, width - 2750),
            .listHeight = std::max(0.0, height - 1600),
            .treeHeight = std::max(0.0, treeHeight),
            .lineEnd = width - 150,
            .imageTop = treeTop + treeHeight};
}
