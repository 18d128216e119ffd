#pragma once

#include <QIcon>
#include <QLabel>

#include <string_view>

// One line of plain text with an optional icon right before it. A text that does not fit is shown with an
// ellipsis; it never forces the window wider.
class PlainLabel : public QLabel {
    Q_OBJECT

public:
    // meaning: what the text is, for those who cannot see where it stands; for example "Connection".
    PlainLabel(const QString& objectName, QString meaning, QWidget* parent = nullptr);

    void ShowText(std::string_view text);  // any bytes; see PlainText
    void ShowIcon(const QIcon& icon);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int IconExtent() const;
    int WidthBesideText() const;

    QString m_meaning;
    QIcon m_icon;
};
