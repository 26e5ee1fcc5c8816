#pragma once

#include <QWebEngineProfile>

/// What the pages of all controls have in common: cookies and cache, in memory alone, and what pages may not
/// do.
class WebProfile : public QWebEngineProfile
{
public:
    WebProfile();
};
