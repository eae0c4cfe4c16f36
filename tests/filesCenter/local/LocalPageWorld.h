#pragma once

#include "../../platform/TestWorld.h"

#include <SystemAssistant.h>
#include <VFileDialog.h>
#include <VMessageBox.h>

#include <QImage>
#include <QPushButton>
#include <QStringList>
#include <QWidget>

#include <functional>

/// A page without a person: a store and files of its own, alerts and questions noted and answered.
class LocalPageWorld final
{
public:
    LocalPageWorld()
    {
        qputenv("XDG_DATA_HOME", world.path(QStringLiteral("data")).toLocal8Bit()); // the recycle bin is there
        qputenv("XDG_CACHE_HOME", world.path(QStringLiteral("cache")).toLocal8Bit());
        vemo_worker::SystemAssistant::instance().setPresenter(
            [this](const QString&, const QString& text) { alerts.append(text); });
        vemo_base::VMessageBox::setAnswerer([this](const QString& text) {
            questions.append(text);
            if (whileAsked)
                whileAsked();
            return answer;
        });
        VCOMMON::VFileDialog::setAnswerer([this](const VCOMMON::VFileDialog::Request& request) {
            filters.append(request.filter);
            return chosen;
        });
    }

    ~LocalPageWorld()
    {
        vemo_worker::SystemAssistant::instance().finishRemovals();
        vemo_worker::SystemAssistant::instance().setPresenter({});
        vemo_base::VMessageBox::setAnswerer({});
        VCOMMON::VFileDialog::setAnswerer({});
    }

    QString image(const QString& name) const
    {
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(Qt::darkRed);
        const QString path = world.path(name);
        if (!image.save(path, name.endsWith(QLatin1String("bmp"), Qt::CaseInsensitive) ? "bmp" : "jpg"))
            qFatal("cannot save a test image");
        return path;
    }

    static void click(const QWidget& page, const char* name)
    {
        page.findChild<QPushButton*>(QLatin1String(name))->click();
    }

    TestWorld world;
    QStringList alerts;
    QStringList questions;
    QStringList filters; ///< of the file dialogs
    int answer = 1;
    std::function<void()> whileAsked;
    QString chosen; ///< in the file dialogs
};
