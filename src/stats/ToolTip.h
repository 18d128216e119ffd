#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class Balloon;

// The tool tip of one control: a bold title with an icon over a plain text, shown while the mouse rests on
// the control, up to 30 seconds. Ctrl+F1 in the control shows it too, and the same text is the control's
// description and its "What's this?". All texts are shown plainly, whatever they hold.
// Set up first, then Create(); what is set later shows at once.
class ToolTip : public QObject {
    Q_OBJECT

public:
    enum Styles : std::uint32_t { Standard = 0, BalloonStyle = 1 };
    enum Icons : std::uint32_t { NoIcon = 0, Information = 1, Warning = 2, Error = 3 };
    static constexpr int kMostTime = 30'000;  // milliseconds

    ToolTip();
    ~ToolTip() override;

    std::uint32_t Style() const { return m_style; }
    void SetStyle(std::uint32_t style) { m_style = style; }  // of the next Create()
    bool Centered() const { return m_isCentered; }           // below the control, else at the pointer
    void SetCentered(bool isCentered) { m_isCentered = isCentered; }
    bool Enabled() const { return m_isEnabled; }
    void SetEnabled(bool isEnabled);
    QWidget* ParentControl() const { return m_control; }
    void SetParentControl(QWidget* control);  // of the next Create()
    std::uint32_t Icon() const { return m_icon; }
    void SetIcon(std::uint32_t icon);
    std::uint32_t ForeColor() const { return m_foreColor; }  // OLE colours; 0: the desktop's
    void SetForeColor(std::uint32_t color);
    std::uint32_t BackColor() const { return m_backColor; }
    void SetBackColor(std::uint32_t color);
    const std::string& Title() const { return m_title; }
    void SetTitle(std::string title);
    const std::string& TipText() const { return m_text; }  // wrapped
    void SetTipText(std::string_view text);

    // Binds the tip to its control; without one nothing happens. Once more: anew.
    void Create();
    void Destroy();
    bool IsCreated() const { return !m_bound.isNull(); }
    bool IsShown() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PopUp(const QPoint& globalPointer);
    void Hide();
    void Refresh();
    void Describe();
    void FillBalloon();

    std::uint32_t m_style = Standard;
    bool m_isCentered = false;
    bool m_isEnabled = true;
    QPointer<QWidget> m_control;
    std::uint32_t m_icon = NoIcon;
    std::uint32_t m_foreColor = 0;
    std::uint32_t m_backColor = 0;
    std::string m_title;
    std::string m_text;

    QPointer<QWidget> m_bound;  // the control, from Create to Destroy
    std::uint32_t m_createdStyle = Standard;
    QPointer<Balloon> m_balloon;  // a child window of the control; made when it is first shown
    QTimer m_time;
};
