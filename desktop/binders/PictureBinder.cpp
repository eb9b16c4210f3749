#include "desktop/binders/PictureBinder.h"

#include "desktop/FormWindow.h"
#include "desktop/Look.h"

#include <QBuffer>
#include <QEvent>
#include <QFrame>
#include <QImageReader>
#include <QLabel>
#include <QPalette>
#include <QPixmap>
#include <QSizePolicy>

namespace rovanta {

PictureBinder::PictureBinder(FormWindow& window, Picture& picture, const Node& node)
    : Binder(window, picture), picture(picture), label(new QLabel)
{
    SetWidget(label);
    label->setAlignment(Qt::AlignCenter);
    label->setFrameShape(QFrame::NoFrame);
    label->setAutoFillBackground(true);
    QPalette quiet = label->palette();
    quiet.setColor(QPalette::Window, Look::heading);
    quiet.setColor(QPalette::WindowText, Look::faint);
    label->setPalette(quiet);
    label->setMinimumSize(BoxWidth(*label, node.characters > 0 ? node.characters : 30), 150);
    // A picture never makes its window larger.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

void PictureBinder::Refresh()
{
    const QByteArray bytes = QByteArray::fromStdString(picture.Bytes());
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    image = bytes.isEmpty() ? QImage() : reader.read();
    Scale();
}

void PictureBinder::Scale()
{
    if (picture.IsEmpty()) {
        label->setText("No picture");
    } else if (image.isNull()) {
        label->setText("No preview of this kind of picture");
    } else {
        const qreal ratio = label->devicePixelRatioF();
        QPixmap scaled = QPixmap::fromImage(
            image.scaled(label->contentsRect().size() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        scaled.setDevicePixelRatio(ratio);
        label->setPixmap(scaled);
    }
}

bool PictureBinder::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && !window.IsDetached())
        Scale();
    return Binder::eventFilter(watched, event);
}

}
