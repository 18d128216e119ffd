#pragma once

#include "controls/ButtonModel.h"
#include "controls/ChangedNames.h"
#include "controls/MouseArgs.h"
#include "controls/OleColors.h"
#include "controls/PropertyBag.h"

#include <QPixmap>
#include <QWidget>

// A flat image button that lights up under the mouse and sinks when pressed; Space and Enter press it when
// it has the focus. Colours are OLE colour values.
class ActiveButton : public QWidget {
    Q_OBJECT

public:
    explicit ActiveButton(QWidget* parent = nullptr);

    std::uint32_t BackColor() const { return m_backColor; }  // at rest
    void SetBackColor(std::uint32_t color);
    std::uint32_t ActiveBackColor() const { return m_activeBackColor; }  // hot or pressed
    void SetActiveBackColor(std::uint32_t color);
    int BorderWidth() const { return m_borderWidth; }  // pixels, when hot
    void SetBorderWidth(int width);                    // kept between 0 and half the button
    QPixmap Image() const { return m_image; }
    void SetImage(const QPixmap& image);
    int MousePointer() const { return m_mousePointer; }
    void SetMousePointer(int pointer);
    QPixmap MouseIcon() const { return m_mouseIcon; }
    void SetMouseIcon(const QPixmap& icon);
    WId hWnd() const { return winId(); }

    ButtonModel::Look State() const { return m_model.State(); }
    void PressOnce();  // as if it were clicked; nothing while disabled

    bool IsChanged(std::string_view property) const { return m_changed.Contains(property); }
    void Load(const PropertyBag& bag);
    void Save(PropertyBag& bag) const;

    QSize sizeHint() const override { return {15, 15}; }

Q_SIGNALS:
    void Click();
    void DblClick();
    void MouseDown(const MouseArgs& args);
    void MouseMove(const MouseArgs& args);
    void MouseUp(const MouseArgs& args);

protected:
    virtual void DrawImage(QPainter& painter, const QRect& area);  // within the pressed or unpressed area

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    template <class T>
    void Keep(T& field, const T& value, const char* name);
    bool IsInside(const QMouseEvent& event) const { return rect().contains(event.position().toPoint()); }

    ButtonModel m_model;
    std::uint32_t m_backColor = OleColor::ButtonFace;
    std::uint32_t m_activeBackColor = OleColor::ButtonFace;
    int m_borderWidth = 1;
    QPixmap m_image;
    QPixmap m_mouseIcon;
    int m_mousePointer = 0;
    ChangedNames m_changed;
};
