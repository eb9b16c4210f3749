#pragma once

#include "desktop/binders/Binder.h"
#include "forms/Picture.h"

#include <QImage>

class QLabel;

namespace rovanta {

/// A picture, scaled to its box.
class PictureBinder : public Binder {
public:
    PictureBinder(FormWindow& window, Picture& picture, const Node& node);

protected:
    void Refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Scale();

    Picture& picture;
    QLabel* label;
    QImage image;
};

}
