// A picture of what the canvas shows, painted beside the window where painting takes long.

#pragma once

#include "view/DrawingPainter.h"

#include <QImage>
#include <QObject>

#include <atomic>
#include <functional>
#include <future>
#include <memory>

namespace refhost {

/// A transparent picture of something in some view. Until a new one is complete the last one is shown, moved
/// and scaled to where it belongs.
class Sheet : public QObject {
    Q_OBJECT

public:
    /// Paints what is to be shown; false when the painter has ended early. Called in any thread, and must not
    /// depend on what another one changes.
    using Paint = std::function<bool(DrawingPainter &, QPainter &, const ViewTransform &)>;

    /// What is painted beside the window is `reach` times as wide and high as the view.
    explicit Sheet(const DrawingColours &colours, double reach = 1.0, QObject *parent = nullptr);
    /// Ends painting, as everything does that makes it useless.
    ~Sheet() override;

    /// Has nothing to show any more.
    void clear();
    /// From now on shows what `paint` paints of the drawing that `boxes` are of. The last picture stays until
    /// there is a new one.
    void setContent(std::shared_ptr<const EntityBoxes> boxes, Paint paint);

    bool isPainting() const { return m_work.valid(); }

    /// Shows `view`. What takes a moment only is painted for it at once. Otherwise painting begins beside the
    /// window; one for another view goes on unless `isAtRest`, since the next view would come too early.
    void show(QPainter &painter, const ViewTransform &view, bool isAtRest);

signals:
    /// There is more to show.
    void painted();

private:
    struct Picture {
        QImage image;
        ViewTransform view; // its middle and scale are the image's too

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
    bool m_isLarge = false;   // painting it at once was tried
    ViewTransform m_nextView; // which is being painted
    int m_number = 0;         // of what is being painted
    std::future<void> m_work; // reads this object, so it ends before anything of it changes
    std::atomic<bool> m_isStopped{false};
};

} // namespace refhost
