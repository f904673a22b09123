#include "ui/wx/bind_progress_bar.h"

#include "ui/wx/bound_view.h"

namespace varnhold::ui::wx {
namespace {

class ProgressBarView : public BoundView<ControlView, ui::ProgressBar, wxGauge> {
 public:
  using BoundView::BoundView;

 private:
  void show(const ui::ProgressBar& bar) override {
    const int range = bar.Max - bar.Min;
    if (widget().GetRange() != range) widget().SetRange(range);
    const int value = bar.Value - bar.Min;
    if (widget().GetValue() != value) widget().SetValue(value);
  }
};

}  // namespace

wxWindow* bindProgressBar(wxWindow* parent, ui::ProgressBar& bar) {
  return bind<ProgressBarView>(new wxGauge(parent, wxID_ANY, bar.Max - bar.Min, wxDefaultPosition,
                                           wxDefaultSize, wxGA_HORIZONTAL | wxGA_SMOOTH),
                               bar);
}

}  // namespace varnhold::ui::wx
