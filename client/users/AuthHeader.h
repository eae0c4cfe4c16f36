#pragma once

#include <QWidget>

namespace vemo_client {

/// Above the form of a page before the login: mark and name, at the trailing end the theme. GUI thread.
class AuthHeader final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AuthHeader)

public:
    explicit AuthHeader(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vemo_client
