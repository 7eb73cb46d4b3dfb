// A picture for the canvas. A large one is painted in another thread.

#pragma once

#include "view/DrawingPainter.h"

#include <QImage>
#include <QObject>

#include <atomic>
#include <functional>
#include <future>
#include <memory>

namespace refhost {

/// A transparent picture of some content in a view. The last picture is shown, moved and scaled into place,
/// until a new one is complete.
class Sheet : public QObject {
    Q_OBJECT

public:
    /// Paints the content; false when the painter has ended early. Called in any thread, so it must not use
    /// data that another thread changes.
    using Paint = std::function<bool(DrawingPainter &, QPainter &, const ViewTransform &)>;

    /// Pictures from the other thread are `reach` times as wide and high as the view.
    explicit Sheet(const DrawingColours &colours, double reach = 1.0, QObject *parent = nullptr);
    /// Stops the other thread.
    ~Sheet() override;

    /// Removes content and picture.
    void clear();
    /// Sets the content: `paint` paints the drawing of `boxes`. The last picture stays until there is a new
    /// one.
    void setContent(std::shared_ptr<const EntityBoxes> boxes, Paint paint);

    bool isPainting() const { return m_work.valid(); }

    /// Shows `view`. Small content is painted at once, large content in another thread. A picture for another
    /// view is still completed unless `isAtRest`, since a moving view would never get one.
    void show(QPainter &painter, const ViewTransform &view, bool isAtRest);

signals:
    /// A new picture can be shown.
    void painted();

private:
    struct Picture {
        QImage image;
        ViewTransform view; // with the centre and scale of the image

        void show(QPainter &painter, const ViewTransform &shown) const;
    };

    bool paintAtOnce(const ViewTransform &view, double ratio);
    void paintBeside(const ViewTransform &view, double ratio);
    void report(const Picture &picture, bool isComplete);
    void stop();

    const DrawingColours m_colours;
    const double m_reach;
    DrawingPainter m_painter; // for this thread
    std::shared_ptr<const EntityBoxes> m_boxes;
    Paint m_paint;
    Picture m_picture;
    Picture m_unfinished;
    bool m_isCurrent = false; // the picture shows the content as it is now
    bool m_isLarge = false;   // painting it at once took too long
    ViewTransform m_nextView; // which is being painted
    int m_number = 0;         // of the picture in the other thread
    std::future<void> m_work; // reads this object and ends before any member changes
    std::atomic<bool> m_isStopped{false};
};

} // namespace refhost
