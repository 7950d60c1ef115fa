#pragma once

#include <QObject>

// Tells when the primary screen is another one, or has been rotated or resized, once for all that
// the server reports of it at a time.
class ScreenFollower : public QObject {
    Q_OBJECT

public:
    explicit ScreenFollower(QObject* parent);

signals:
    void screenChanged();

    // Panels leave more or less of it now.
    void roomChanged();

private:
    void follow();
    void tellSoon();

    bool isChanged = false; // and has still to be told
};
