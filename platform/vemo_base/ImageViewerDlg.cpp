#include "ImageViewerDlg.h"

#include "pictures/PictureLoader.h"
#include "pictures/PictureView.h"
#include "pictures/Thumbnails.h"
#include "pictures/ViewerBar.h"
#include "player/PlayerTitleBar.h"
#include "Theme.h"

#include <ToolsCollection.h>

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QKeyEvent>

namespace vemo_base {

namespace {

constexpr QSize widest{1180, 800};
constexpr QSize narrowest{720, 480};
constexpr int percent = 100;
constexpr double panStep = 60;

} // namespace

class ImageViewerDlg::Private final
{
public:
    explicit Private(ImageViewerDlg* dialog);

    void start(int count, int index);
    void step(int by) { show(index + by); }
    void show(int wanted);
    void showLoaded();
    void showScale();
    void copy();
    bool takeKey(const QKeyEvent& event);

    ImageViewerDlg* const q;
    PlayerTitleBar* const titleBar;
    PictureView* const view;
    ViewerBar* const bar;
    PictureLoader* const loader;

    QStringList files;
    QStringList titles;
    int index = -1;

private:
    bool takeZoomKey(const QKeyEvent& event);
    bool takeStepKey(const QKeyEvent& event);
};

ImageViewerDlg::Private::Private(ImageViewerDlg* dialog)
    : q(dialog)
    , titleBar(dialog->titleBar())
    , view(new PictureView(dialog))
    , bar(new ViewerBar(dialog))
    , loader(new PictureLoader(dialog))
{
    titleBar->setIcon(QStringLiteral("local-snapshot"));
    q->setParts(view, bar, ViewerBar::barHeight);
    connect(loader, &PictureLoader::signalLoaded, q, [this](int loaded) {
        if (loaded == index)
            showLoaded();
    });
    connect(view, &PictureView::signalScaleChanged, q, [this] { showScale(); });
    connect(view, &PictureView::signalStepRequested, q, [this](int by) { step(by); });
    connect(bar, &ViewerBar::signalStepRequested, q, [this](int by) { step(by); });
    connect(bar, &ViewerBar::signalZoomRequested, view, &PictureView::zoom);
    connect(bar, &ViewerBar::signalFitRequested, view, &PictureView::fit);
    connect(bar, &ViewerBar::signalActualSizeRequested, view, [this] { view->setScale(1); });
    connect(bar, &ViewerBar::signalTurnRequested, view, &PictureView::turn);
    connect(bar, &ViewerBar::signalCopyRequested, q, [this] { copy(); });
    connect(bar, &ViewerBar::signalFolderRequested, q,
            [this] { VCOMMON::ToolsCollection::openFolderAndSelectFile(files.value(index)); });
    connect(bar, &ViewerBar::signalFullScreenRequested, q, [this] { q->setFullScreen(!q->isFullScreen()); });
}

void ImageViewerDlg::Private::start(int count, int wanted)
{
    index = -1;
    bar->setHasFile(!files.isEmpty());
    if (count > 0) {
        show(qBound(0, wanted, count - 1));
        return;
    }
    bar->setPlace(0, 0);
    titleBar->setTitle({});
    titleBar->setFacts({});
    view->setMessage(QStringLiteral("error"), tr("This image can't be read"));
}

void ImageViewerDlg::Private::show(int wanted)
{
    if (wanted < 0 || wanted >= loader->count() || wanted == index)
        return;
    index = wanted;
    bar->setPlace(index, loader->count());
    QString title = titles.value(index);
    if (title.isEmpty())
        title = QFileInfo(files.value(index)).fileName();
    q->setWindowTitle(title);
    titleBar->setTitle(title);
    titleBar->setFacts({});
    loader->show(index);
    if (loader->picture(index)) {
        view->setStandIn({}, {}, {});
        showLoaded();
    } else {
        // The small picture of the card or icon, when there is one, so that stepping shows something at once.
        const Thumbnail known = Thumbnails::instance().findAny(files.value(index));
        view->setStandIn(known.image, known.pictureSize, tr("Opening %1").arg(title));
    }
    emit q->signalShown(index);
}

void ImageViewerDlg::Private::showLoaded()
{
    const LoadedPicture& picture = *loader->picture(index);
    if (picture.levels.isEmpty()) {
        view->setMessage(QStringLiteral("error"), picture.error);
        return;
    }
    titleBar->setFacts(tr("%1 x %2").arg(picture.size.width()).arg(picture.size.height()));
    view->setPicture(picture);
}

void ImageViewerDlg::Private::showScale()
{
    bar->setScale(view->hasPicture() ? qMax(1, qRound(view->scale() * percent)) : 0, view->isFitted());
}

void ImageViewerDlg::Private::copy()
{
    const QImage picture = view->turnedPicture();
    if (!picture.isNull())
        QGuiApplication::clipboard()->setImage(picture);
}

bool ImageViewerDlg::Private::takeStepKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
        step(-1);
        return true;
    case Qt::Key_Right:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        step(1);
        return true;
    case Qt::Key_Home:
        show(0);
        return true;
    case Qt::Key_End:
        show(loader->count() - 1);
        return true;
    default:
        return false;
    }
}

bool ImageViewerDlg::Private::takeZoomKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        view->zoom(1);
        return true;
    case Qt::Key_Minus:
        view->zoom(-1);
        return true;
    case Qt::Key_0:
        view->fit();
        return true;
    case Qt::Key_1:
        view->setScale(1);
        return true;
    case Qt::Key_Up:
        view->pan({0, panStep});
        return true;
    case Qt::Key_Down:
        view->pan({0, -panStep});
        return true;
    case Qt::Key_R:
        view->turn(event.modifiers() & Qt::ShiftModifier ? -1 : 1);
        return true;
    default:
        return false;
    }
}

bool ImageViewerDlg::Private::takeKey(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (event.key() == Qt::Key_F && !event.isAutoRepeat() && !(event.modifiers() & Qt::ControlModifier)) {
        q->setFullScreen(!q->isFullScreen());
        return true;
    }
    if (event.modifiers() == Qt::ShiftModifier && (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right)) {
        view->pan({event.key() == Qt::Key_Left ? panStep : -panStep, 0.0});
        return true;
    }
    if (takeZoomKey(event))
        return true;
    return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) && takeStepKey(event);
}

ImageViewerDlg::ImageViewerDlg(QWidget* parent)
    : FramelessDlg(parent, narrowest)
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("imageViewerDlg"));
    setPalette(Theme::palette(ThemeMode::Dark));
}

ImageViewerDlg::~ImageViewerDlg() = default;

void ImageViewerDlg::setImages(const QList<QPixmap>& images, int index)
{
    QVector<QImage> pictures;
    pictures.reserve(images.size());
    for (const QPixmap& image : images)
        pictures.append(image.toImage());
    d->files.clear();
    d->titles.clear();
    d->loader->setImages(pictures);
    d->start(pictures.size(), index);
}

void ImageViewerDlg::setImageFiles(const QStringList& paths, const QStringList& titles, int index)
{
    d->files = paths;
    d->titles = titles;
    d->loader->setFiles(paths);
    d->start(paths.size(), index);
}

int ImageViewerDlg::currentIndex() const
{
    return d->index;
}

void ImageViewerDlg::setVisible(bool visible)
{
    if (visible && !isVisible())
        place((room().size() * shareOfParent).boundedTo(widest).expandedTo(narrowest));
    QDialog::setVisible(visible);
    if (visible)
        setFocus();
}

void ImageViewerDlg::done(int result)
{
    d->loader->setFiles({});
    FramelessDlg::done(result);
}

void ImageViewerDlg::showFullScreenState(bool isFullScreen)
{
    d->bar->setFullScreen(isFullScreen);
}

bool ImageViewerDlg::takeKey(const QKeyEvent& event)
{
    return d->takeKey(event);
}

} // namespace vemo_base
