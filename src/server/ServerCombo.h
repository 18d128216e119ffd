#pragma once

#include <QComboBox>

#include <span>

struct ServerChoice;

// The box for a server's name: typed, or picked from the list. What it shows is harmless plain text; the
// names themselves stay with whoever fills it.
class ServerCombo : public QComboBox {
    Q_OBJECT

public:
    explicit ServerCombo(QWidget* parent = nullptr);

    // By program: none of these makes a signal.
    void Offer(std::span<const ServerChoice> servers, int selected);
    void ShowName(const QString& plain);

Q_SIGNALS:
    void Edited(const QString& text);
    void Picked(int entry);  // from the list, the one that is selected already included
    void Entered();          // the Enter key, which goes no further
    // The focus goes to another control of the window.
    void Left(Qt::FocusReason reason);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};
