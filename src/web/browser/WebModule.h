#pragma once

class WebControl;
class QWidget;

/// The module that shows web pages, which is loaded for the first browser.
namespace WebModule {

/// A control of the module's. Throws RuntimeError 48 where the module, or a part of Qt WebEngine, is not
/// installed or cannot be loaded; a later call tries again.
WebControl *makeControl(QWidget *parent);

} // namespace WebModule
