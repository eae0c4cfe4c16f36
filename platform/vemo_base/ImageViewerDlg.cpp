#include "ImageViewerDlg.h"

#include "pictures/PictureLoader.h"
#include "pictures/PictureView.h"
#include "pictures/Thumbnails.h"
#include "pictures/ViewerBar.h"
#include "player/DimVeil.h"
#include "player/FadingBar.h"
#include "player/PlayerTitleBar.h"
#include "StylePainter.h"
#include "Theme.h"

#include <ToolsCollection.h>

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QScreen>
#include <QSizeGrip>
#include <QWindow>

namespace vemo_base {

namespace {

constexpr QSize widest{1180, 800};
constexpr QSize narrowest{720, 480};
constexpr double shareOfParent = 0.9;
constexpr double radius = 10;
constexpr int border = 1;
constexpr int percent = 100;
constexpr double panStep = 60;

} // namespace

class ImageViewerDlg::Private final
{
public:
    explicit Private(ImageViewerDlg* dialog);
    ~Private() { delete veil; }

    void start(int count, int index);
    void step(int by) { show(index + by); }
    void show(int wanted);
    void showLoaded();
    void showScale();
    void copy();
    void place();
    void arrange();
    void setFullScreen(bool on);
    bool takeKey(const QKeyEvent& event);

    ImageViewerDlg* const q;
    PlayerTitleBar* const titleBar;
    PictureView* const view;
    ViewerBar* const bar;
    FadingBar* const fading; ///< hides the bar in full screen
    QSizeGrip* const grip;
    PictureLoader* const loader;
    QPointer<DimVeil> veil;

    QStringList files;
    QStringList titles;
    int index = -1;
    QRect geometryBefore; ///< full screen

private:
    bool takeZoomKey(const QKeyEvent& event);
    bool takeStepKey(const QKeyEvent& event);
};

ImageViewerDlg::Private::Private(ImageViewerDlg* dialog)
    : q(dialog)
    , titleBar(new PlayerTitleBar(dialog))
    , view(new PictureView(dialog))
    , bar(new ViewerBar(dialog))
    , fading(new FadingBar(bar, dialog))
    , grip(new QSizeGrip(dialog))
    , loader(new PictureLoader(dialog))
{
    titleBar->setIcon(QStringLiteral("local-snapshot"));
    connect(titleBar, &PlayerTitleBar::signalCloseRequested, q, &QDialog::reject);
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
    connect(bar, &ViewerBar::signalFullScreenRequested, q, [this] { setFullScreen(!q->isFullScreen()); });
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
        setFullScreen(!q->isFullScreen());
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

void ImageViewerDlg::Private::setFullScreen(bool on)
{
    if (on == q->isFullScreen())
        return;
    if (on) {
        geometryBefore = q->geometry();
        q->showFullScreen();
        q->windowHandle()->setGeometry(q->screen()->geometry()); // where no window manager does it
    } else {
        q->showNormal();
        q->setGeometry(geometryBefore);
    }
    arrange();
}

void ImageViewerDlg::Private::place()
{
    const QWidget* under = q->parentWidget() ? q->parentWidget()->window() : nullptr;
    const QRect room = under ? under->geometry() : QGuiApplication::primaryScreen()->availableGeometry();
    q->resize((room.size() * shareOfParent).boundedTo(widest).expandedTo(narrowest));
    q->move(room.center() - q->rect().center());
    if (under && under->isVisible() && !veil)
        veil = new DimVeil(q->parentWidget()->window());
}

void ImageViewerDlg::Private::arrange()
{
    const bool full = q->isFullScreen();
    titleBar->setVisible(!full);
    grip->setVisible(!full);
    bar->setFullScreen(full);
    fading->setActive(full);
    if (full) {
        q->clearMask();
        view->setGeometry(q->rect());
        bar->setGeometry(0, q->height() - ViewerBar::barHeight, q->width(), ViewerBar::barHeight);
        bar->raise();
        return;
    }
    QPainterPath shape;
    shape.addRoundedRect(q->rect().adjusted(0, 0, border, border), radius, radius);
    q->setMask(shape.toFillPolygon().toPolygon());
    const QRect inside = q->rect().adjusted(border, border, -border, -border);
    titleBar->setGeometry(inside.left(), inside.top(), inside.width(), PlayerTitleBar::barHeight);
    bar->setGeometry(inside.left(), inside.bottom() + 1 - ViewerBar::barHeight, inside.width(), ViewerBar::barHeight);
    view->setGeometry(inside.adjusted(0, PlayerTitleBar::barHeight, 0, -ViewerBar::barHeight));
    const QSize gripSize = grip->sizeHint();
    grip->setGeometry(inside.right() - gripSize.width(), inside.bottom() - gripSize.height(), gripSize.width(),
                      gripSize.height());
    grip->raise();
}

ImageViewerDlg::ImageViewerDlg(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("imageViewerDlg"));
    setPalette(Theme::palette(ThemeMode::Dark));
    setWindowModality(Qt::WindowModal);
    setMinimumSize(narrowest);
    setFocusPolicy(Qt::StrongFocus);
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
        d->place();
    QDialog::setVisible(visible);
    if (visible)
        setFocus();
}

void ImageViewerDlg::done(int result)
{
    d->setFullScreen(false);
    delete d->veil;
    d->loader->setFiles({});
    QDialog::done(result);
}

void ImageViewerDlg::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && isFullScreen())
        d->setFullScreen(false);
    else if (event->key() == Qt::Key_Escape)
        reject();
    else if (!d->takeKey(*event))
        event->ignore(); // Enter has no button here that it could mean
}

void ImageViewerDlg::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    d->arrange();
}

void ImageViewerDlg::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(mode, Token::Surface));
    painter.setRenderHint(QPainter::Antialiasing);
    StylePainter::box(&painter, QRectF(rect()), radius, Qt::transparent, themeColor(mode, Token::Control));
}

} // namespace vemo_base
