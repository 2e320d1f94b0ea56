#pragma once

#include <QWidget>

#include "FormView.h"

class frmSplash;

// The splash window: frameless, with the product's labels. A click on the frame, the
// image or one of the labels named in the model ends the wait of the start.
class SplashView : public BoundView<QWidget>
{
public:
    explicit SplashView(frmSplash& model, QWidget* parent = nullptr);
};
