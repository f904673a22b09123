// A window with a tree and a list, for the test that reads them from outside. It closes when its standard
// input ends.
#include <iostream>
#include <thread>

#include "ui/controls/form.h"
#include "ui/controls/list_view.h"
#include "ui/controls/screen.h"
#include "ui/controls/tree_view.h"
#include "ui/wx/bind_list_view.h"
#include "ui/wx/bind_tree_view.h"
#include "ui/wx/wx_headers.h"
#include "ui/wx/wx_toolkit.h"

namespace {

using namespace varnhold::ui;

class ConsoleForm : public Form {
 public:
  explicit ConsoleForm(Screen& screen) : Form(screen, "frmConsole") {
    Caption = "List window";
    Width = 12000;
    Height = 6000;
    tree.ImageList = &pictures;
    list.SmallIcons = &pictures;
    list.MultiSelect = true;
    for (const auto* head : {"Computer", "System Status"}) list.ColumnHeaders.Add(head);
    list.ItemClick = [](ListItem& row) { std::cout << "click " << row.Text << std::endl; };
    adopt({{"tree", tree}, {"list", list}});
  }

  void fill() {
    tree.Nodes.Add("root", "Groups", 1);
    tree.Nodes.Add("root", Relationship::Child, "MailKey", "Mail", 1);
    tree.Nodes(1).Expanded = true;
    for (const auto* name : {"CALYPSO", "ATLAS", "DELOS"}) {
      auto& row = list.ListItems.Add(name);
      row.SmallIcon = 1;
      row.SubItems(1) = std::string("Status of ") + name;
    }
  }

  void sort() { list.Sorted = true; }

  ImageList pictures{{"computer"}};
  TreeView tree;
  ListView list;
};

void layOut(wxWindow& inside, ConsoleForm& form) {
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(wx::bindTreeView(&inside, form.tree), wxSizerFlags(1).Expand());
  sizer->Add(wx::bindListView(&inside, form.list), wxSizerFlags(2).Expand());
  inside.SetSizer(sizer);
}

}  // namespace

int main() {
  wx::WxToolkit toolkit({{"frmConsole", wx::viewOf<ConsoleForm>(layOut)}});
  Screen screen(toolkit, "Varnhold - System Manager");
  ConsoleForm form(screen);
  std::thread reader([&] {
    for (std::string line; std::getline(std::cin, line);) wxTheApp->CallAfter([&] { form.sort(); });
    wxTheApp->CallAfter([&] { form.userClose(); });
  });
  const int status = screen.run([&] {
    form.Show();
    form.fill();
    std::cout << "ready" << std::endl;
  });
  reader.join();
  return status;
}
