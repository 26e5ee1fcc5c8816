#include "FairWidths.h"

#include <algorithm>
#include <numeric>

QList<int> FairWidths::of(const QList<int> &wanted, int room)
{
    QList<qsizetype> narrowestFirst(wanted.size());
    std::iota(narrowestFirst.begin(), narrowestFirst.end(), 0);
    std::ranges::stable_sort(narrowestFirst, {}, [&](qsizetype i) { return wanted[i]; });
    QList<int> widths(wanted.size());
    int left = qMax(room, 0);
    qsizetype others = wanted.size();
    for (const qsizetype i : narrowestFirst) {
        widths[i] = qMin(wanted[i], int(left / others));
        left -= widths[i];
        --others;
    }
    return widths;
}
