#pragma once

// The part of the frame in which the open forms are, each in a child window.

#include <QMdiArea>

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace sheetwright {

class FormWindow;
class frmSheetwright;

class FormArea : public QMdiArea {
  public:
    explicit FormArea(QWidget* parent);
    // The forms go while what they call is there, and tell nobody.
    ~FormArea() override;

    // The form that was activated last, or another one when that is gone; none where none is open.
    [[nodiscard]] FormWindow* Active() const;
    // In the order in which they were opened.
    [[nodiscard]] std::vector<FormWindow*> Forms() const;
    [[nodiscard]] FormWindow* FormOf(const frmSheetwright& document) const;
    // The child window around a form.
    [[nodiscard]] static QMdiSubWindow& FrameOf(FormWindow& form);

    // Shows a form. The first one fills the area, the others come as the one in front is.
    void Add(std::unique_ptr<FormWindow> made);
    void BringToFront(FormWindow& form);
    // At once and without a question.
    void Remove(FormWindow& form);
    // Closes the forms without a question.
    void CloseAll();
    // Whether a form closes without a question.
    [[nodiscard]] bool IsClosingAll() const { return m_isClosingAll; }
    // The form closes now: `Closed` is called when it is gone.
    void NoteClosing(FormWindow& form);

    std::function<void()> Deactivated;  // another form comes to the front, or the last one is gone
    std::function<void(FormWindow&)> Activated;
    std::function<void()> Changed;  // other forms are open, or none is in front
    std::function<void()> Closed;   // a form is gone that a person has closed

  private:
    void Activate(QMdiSubWindow* window);
    void SetActive(const QObject* form);
    void Forget(QObject* form);

    // Compared only: it may be a form that is just being destroyed.
    const QObject* m_active = nullptr;
    std::set<const QObject*> m_closing;
    bool m_isClosingAll = false;
};

}  // namespace sheetwright
