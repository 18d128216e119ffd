#pragma once

#include "controls/ActiveButton.h"
#include "controls/ChangedNames.h"
#include "controls/HeaderLayout.h"
#include "controls/MouseTeller.h"
#include "controls/OleColors.h"
#include "controls/PropertyBag.h"

#include <QPixmap>

#include <string>

// A caption bar with an optional image and a close button. A caption that does not fit ends with "...".
// Colours are OLE colour values.
class ActiveHeader : public MouseTeller {
    Q_OBJECT

public:
    explicit ActiveHeader(QWidget* parent = nullptr);

    std::uint32_t BackColor() const { return m_backColor; }
    void SetBackColor(std::uint32_t color);
    std::uint32_t ForeColor() const { return m_foreColor; }
    void SetForeColor(std::uint32_t color);
    bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }
    void SetEnabled(bool isOn);  // shows or hides the close button, too
    QFont Font() const { return font(); }
    void SetFont(const QFont& font);
    const std::string& Caption() const { return m_caption; }
    void SetCaption(std::string caption);  // any bytes; shown as PlainText
    QPixmap Image() const { return m_image; }
    void SetImage(const QPixmap& image);
    int BorderWidth() const { return m_borderWidth; }  // pixels
    void SetBorderWidth(int width);
    int Appearance() const { return m_appearance; }  // 1: raised, else a flat frame
    void SetAppearance(int appearance);
    bool CenterCaption() const { return m_centerCaption; }  // up and down
    void SetCenterCaption(bool isCentered);
    int MousePointer() const { return m_mousePointer; }
    void SetMousePointer(int pointer);
    QPixmap MouseIcon() const { return m_mouseIcon; }
    void SetMouseIcon(const QPixmap& icon);
    WId hWnd() const { return winId(); }

    ActiveButton& CloseButton() const { return *m_closeButton; }
    QString ShownCaption() const;  // as it is fitted; empty when not even "..." fits

    bool IsChanged(std::string_view property) const { return m_changed.Contains(property); }
    void Load(const PropertyBag& bag);
    void Save(PropertyBag& bag) const;

    QSize sizeHint() const override { return {160, 19}; }

Q_SIGNALS:
    void Resize();
    void CloseClick();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    template <class T>
    void Keep(T& field, T value, const char* name);
    HeaderSize Size() const;
    UnitRect Usable() const;
    UnitRect CaptionRoom() const;
    ImageSpan ImageAcross() const;
    ImageSpan ImageDown() const;
    bool HasImage() const;
    void PlaceClose();
    void EnableClose();
    void DrawCaption(QPainter& painter) const;
    void DrawPicture(QPainter& painter) const;

    ActiveButton* const m_closeButton;
    std::uint32_t m_backColor = OleColor::ButtonFace;
    std::uint32_t m_foreColor = OleColor::ButtonText;
    std::string m_caption;
    QString m_plainCaption;
    QPixmap m_image;
    int m_borderWidth = 2;
    int m_appearance = 1;
    bool m_centerCaption = true;
    QPixmap m_mouseIcon;
    int m_mousePointer = 0;
    ChangedNames m_changed;
};
