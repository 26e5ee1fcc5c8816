#pragma once

/// How the parts of the address book's window follow its size. All lengths are twips.
struct BookSizes
{
    static constexpr double leastLength = 400; ///< of the window's height and width

    /// For a window of this outer \a width and \a height, whose tree begins at \a treeTop.
    static BookSizes of(double width, double height, double treeTop);

    double listWidth;
    double listHeight;
    double treeHeight;
    double lineEnd; ///< the right end of the line below the toolbar
    double imageTop;
};
