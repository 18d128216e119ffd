#pragma once

#include "controls/ActiveHeader.h"
#include "controls/ChangedNames.h"
#include "controls/CoordinateScale.h"
#include "controls/PanelSurface.h"
#include "controls/ScrollBars.h"

#include <QKeyEvent>

#include <functional>
#include <optional>

// A container with a header, scroll bars and a client area for the host's controls, which are children of
// Surface(). The header is coloured while the panel holds the focus. Places are twips from the surface's left
// top corner, the header included; on layouts that run right to left, from the right. Colours are OLE colour
// values. Borders, sizes and events follow the surface; the header and the bars can be spoken to themselves.
class ActivePanel : public QWidget {
    Q_OBJECT

public:
    explicit ActivePanel(QWidget* parent = nullptr);
    ~ActivePanel() override;

    // The surface.
    int Appearance() const { return m_appearance; }  // 1: sunken border, else a flat one
    void SetAppearance(int appearance);
    std::uint32_t BackColor() const { return m_backColor; }
    void SetBackColor(std::uint32_t color);
    std::uint32_t ForeColor() const { return m_foreColor; }
    void SetForeColor(std::uint32_t color);
    bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }
    void SetEnabled(bool isOn);  // with the header
    QFont Font() const { return m_surface->font(); }
    void SetFont(const QFont& font);
    int BorderStyle() const { return m_borderStyle; }  // 0: none, else by the appearance
    void SetBorderStyle(int style);
    bool ClipControls() const { return m_clipControls; }  // kept; painting always leaves the controls out
    void SetClipControls(bool clip);
    int MousePointer() const { return m_mousePointer; }
    void SetMousePointer(int pointer);
    QPixmap MouseIcon() const { return m_mouseIcon; }
    void SetMouseIcon(const QPixmap& icon);

    // The unit, see CoordinateScale. Setting a part of the rectangle makes it user-defined.
    int ScaleMode() const { return m_scale.Mode(); }
    Done SetScaleMode(int mode);
    float ScaleLeft() const { return m_scale.Left(); }
    float ScaleTop() const { return m_scale.Top(); }
    float ScaleWidth() const { return m_scale.Width(); }
    float ScaleHeight() const { return m_scale.Height(); }
    Done Scale(float left, float top, float width, float height);
    void Scale();  // back to twips
    float ScaleX(float length, int fromMode, int toMode) const
    {
        return m_scale.ScaleX(length, fromMode, toMode);
    }
    float ScaleY(float length, int fromMode, int toMode) const
    {
        return m_scale.ScaleY(length, fromMode, toMode);
    }
    float TextWidth(const std::string& text) const;
    float TextHeight(const std::string& text) const;

    // The header.
    QPixmap Image() const { return m_header->Image(); }
    void SetImage(const QPixmap& image);
    const std::string& Caption() const { return m_header->Caption(); }
    void SetCaption(std::string caption);
    std::uint32_t HeaderBackColor() const { return m_header->BackColor(); }
    void SetHeaderBackColor(std::uint32_t color);
    std::uint32_t HeaderForeColor() const { return m_header->ForeColor(); }
    void SetHeaderForeColor(std::uint32_t color);
    int HeaderBorderWidth() const { return m_header->BorderWidth(); }
    void SetHeaderBorderWidth(int width);
    bool HeaderCenterCaption() const { return m_header->CenterCaption(); }
    void SetHeaderCenterCaption(bool isCentered);
    QFont HeaderFont() const { return m_header->Font(); }
    void SetHeaderFont(const QFont& font);
    HeaderSide HeaderAlign() const { return m_headerSide; }
    void SetHeaderAlign(HeaderSide side);

    // Scrolling, in the scale's unit. A ScrollWidth or ScrollHeight of 0 stands for the content's own.
    bool ShowScrollBars() const { return m_showScrollBars; }
    void SetShowScrollBars(bool isShown);
    bool AutoScroll() const { return m_bars->AutoScroll(); }
    void SetAutoScroll(bool isAutomatic);
    float ScrollWidth() const { return m_scrollWidth != 0 ? m_scrollWidth : m_content.width; }
    Done SetScrollWidth(float width);  // error 5 for a negative one
    float ScrollHeight() const { return m_scrollHeight != 0 ? m_scrollHeight : m_content.height; }
    Done SetScrollHeight(float height);
    float Margin() const { return m_margin; }  // beyond the farthest control
    void SetMargin(float margin);
    void UpdateScrollExtent();

    ActiveHeader& Header() const { return *m_header; }
    ::ScrollBars& ScrollBars() const { return *m_bars; }
    PanelSurface& Surface() const { return *m_surface; }
    std::vector<QWidget*> Controls() const { return m_surface->Contained().List(); }
    WId hWnd() const { return winId(); }
    void Refresh() { update(); }

    // Puts one of the surface's controls there, as it is scrolled now; and where it is. In twips.
    void Place(QWidget& control, const PanelRect& twips) { m_surface->Contained().Place(control, twips); }
    PanelRect PlaceOf(const QWidget& control) const { return m_surface->Contained().PlaceOf(control); }

    // What lets pending window events run once per scroll step; nothing when none is given.
    void SetPump(std::function<void()> pump) { m_pump = std::move(pump); }

    bool IsChanged(std::string_view property) const { return m_changed.Contains(property); }
    void Load(const PropertyBag& bag);
    void Save(PropertyBag& bag) const;

    QSize sizeHint() const override { return {200, 150}; }

Q_SIGNALS:
    void Click();
    void DblClick();
    void CloseClick();
    void KeyDown(QKeyEvent* event);
    void KeyPress(const QString& text);
    void KeyUp(QKeyEvent* event);
    void MouseDown(const MouseArgs& args);
    void MouseMove(const MouseArgs& args);
    void MouseUp(const MouseArgs& args);
    void Resize();
    void HeaderClick();
    void HeaderDblClick();
    void HeaderMouseDown(const MouseArgs& args);
    void HeaderMouseMove(const MouseArgs& args);
    void HeaderMouseUp(const MouseArgs& args);
    void ScrollX(int code);
    void ScrollY(int code);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void LoadScale(const PropertyBag& bag);
    void ConnectParts();
    int BorderThickness() const;
    void LayOutParts();
    void ShowColors();
    void RaiseParts();
    void JoinTabOrder(QWidget& control);
    void MeasureControls();
    void Followed(ScrollAxis axis, int code);
    void FollowScroll();
    void FocusMoved(QWidget* now);
    bool HoldsFocus() const;
    void Highlight();
    void EndHighlight();
    void ShowFocused(const QWidget& control);
    void TakeFocus(Qt::FocusReason reason);
    QWidget* FirstFocusable() const;
    bool ScrollByKey(const QKeyEvent& event);
    template <class Change>
    Done ChangeScale(Change change);
    Done SetExtent(float& field, float value, const char* name);

    PanelSurface* const m_surface;
    ActiveHeader* const m_header;
    ::ScrollBars* const m_bars;

    CoordinateScale m_scale;
    HeaderSide m_headerSide = HeaderSide::Top;
    int m_appearance = 1;
    std::uint32_t m_backColor = OleColor::WindowBackground;
    std::uint32_t m_foreColor = OleColor::WindowText;
    int m_borderStyle = 1;
    bool m_clipControls = true;
    int m_mousePointer = 0;
    QPixmap m_mouseIcon;
    bool m_showScrollBars = true;
    float m_scrollWidth = 0;
    float m_scrollHeight = 0;
    float m_margin = 60;

    ContentExtent m_content;
    float m_appliedX = 0;  // scroll positions that the controls stand at
    float m_appliedY = 0;
    std::optional<std::uint32_t> m_savedBackColor;  // the header's, while the panel holds the focus
    std::optional<std::uint32_t> m_savedForeColor;
    std::function<void()> m_pump;
    ChangedNames m_changed;
};
