#include "RunReplacement.h"

#include <numeric>

QList<int> RunReplacement::replace(QTextDocument &, const QList<int> &places, int, const QString &)
{
    QList<int> left(places.size());
    std::iota(left.begin(), left.end(), 0);
    return left;
}
