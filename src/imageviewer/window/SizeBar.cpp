#include "SizeBar.h"

#include "Named.h"
#include "PercentList.h"
#include "Twips.h"

#include <QHBoxLayout>

namespace {

constexpr double barHeight = 300; // twips
constexpr double labelGap = 240;  // twips

} // namespace

SizeBar::SizeBar()
    : Combo1(named("Combo1", new PercentList, QStringLiteral("Percentage of the picture's own size")))
    , lblFileSize(named<QLabel>("lblFileSize", QStringLiteral("File Size: 0 KB")))
    , lblImageSize(named<QLabel>("lblImageSize", QStringLiteral("Image Size: 0 \u00d7 0 px")))
{
    const int height = Twips::toPixels(barHeight, logicalDpiY());
    setFixedHeight(height);
    Combo1->setFixedHeight(height);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    row->addWidget(Combo1);
    row->addSpacing(Twips::toPixels(Twips::perPoint * 3, logicalDpiX()));
    row->addWidget(named<QLabel>("Label1", QStringLiteral("%")));
    row->addSpacing(Twips::toPixels(labelGap, logicalDpiX()));
    row->addWidget(lblImageSize);
    row->addSpacing(Twips::toPixels(labelGap, logicalDpiX()));
    row->addWidget(lblFileSize);
    row->addStretch();
    setMinimumWidth(1); // a narrow window cuts the texts and is not held open by them
}
