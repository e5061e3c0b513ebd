// Form fields: text, push button, combo, list, check box and radio button.
//
// Each brings a picture of itself, check boxes and radio buttons one for each of their states, with
// the font and text colour in force when the field was drawn; a font size of 0 stands for one that
// fits. The form tells viewers to draw the fields again (/NeedAppearances), except under PDF/A,
// where the pictures alone count.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/annots.h"
#include "pdf/document.h"
#include "pdf/fieldpictures.h"
#include "pdf/fieldtexts.h"

namespace lm::pdf {

class Fields {
 public:
  Fields(Document& document, Fonts& fonts)
      : document_(document), fonts_(fonts), texts_(document, fonts) {}

  // See clsPDFCreator::DrawField. x, y, width, height and borderWidth in user units.
  // name: its parts are joined by "."; used once, only radio buttons share one and form a group.
  // value: the text; the caption of a button; the chosen item, or items, of a combo or list; of a
  //   check box whether it is on ("", "Off", "No", "False" and "0" are off); of a radio button the
  //   chosen one of the group.
  // items: of a combo or list the choices; of a check box or radio button the name of its own "on"
  //   ("Yes", or the button's number in its group, when empty).
  // flags: the /Ff bits of the format: 1 read only, 2 required, 4 not exported, 0x1000 several
  //   lines, 0x2000 password, 0x40000 combo with an edit box, 0x80000 sorted, 0x200000 several
  //   choices, 0x400000 no spelling check, 0x800000 no scrolling. Those that the type decides are
  //   not taken.
  // borderStyle: 0 solid, 1 dashed, 2 bevelled, 3 inset, 4 underline. No border without a colour.
  // Throws Error without an open page, for an unknown type, a name that is empty, damaged or
  // taken, a box without size, and a colour that is none.
  void DrawField(int type, std::string_view name, double x, double y, double width, double height,
                 std::string_view value, std::string_view toolTip, int flags,
                 std::string_view borderColour, std::string_view backColour, double borderWidth,
                 int borderStyle, std::string_view items);

  // A script for the field drawn last on the open page; a second one of a kind replaces the first.
  // Kinds: "K" keystroke, "F" format, "V" validate, "C" calculate, "D" mouse down, "A" mouse up,
  // "E" enter, "X" exit, "Fo" focus, "Bl" blur, or these words; case does not matter. Throws Error
  // for another kind, without a field, and under PDF/A.
  void OnFieldEvent(std::string_view kind, std::string_view script);

  // Writes the fields of the page in hand: the next object must be the page's contents stream, and
  // the one after it the page.
  void WritePage();
  void WriteAtEnd();                   // what fields have in common: groups and parents of names
  std::string CatalogEntries() const;  // /AcroForm; call while the catalog is open

 private:
  struct Field {
    int type = 0;
    std::string partialName, value, toolTip;
    std::vector<std::string> items;
    int flags = 0;
    PageBox box;
    Frame frame;
    std::string picture;      // of a check box or radio button: that is off
    std::string onOperators;  // of those: what stands in the picture when on
    std::string defaultAppearance;
    std::string state;  // of a check box or radio button: the name of its "on"
    bool on = false;
    int object = 0, parent = 0;
    std::map<std::string, std::string> scripts;  // by key of the dictionary
  };

  // What stands above fields: a part of their names, or a group of radio buttons.
  struct Parent {
    int object = 0, parent = 0;
    std::string partialName;
    std::vector<int> kids;
    bool radio = false;
    Field first;         // of a group: what its buttons have in common
    std::string chosen;  // of a group: the state that is on
    std::set<std::string, std::less<>> states, numbered;  // of a group: all, those made up here
  };

  // What of a field is written before the field itself.
  struct Written {
    std::string appearance;  // /AS and /AP
    std::string actions;     // /AA and /A
  };

  std::string UseDingbats();
  void DrawPicture(Field& field);
  std::string TextOperators(const Field& field) const;
  static std::vector<std::string> Chosen(const Field& field);
  void CheckName(std::string_view name, bool radio) const;
  void CheckState(std::string_view name, std::string_view state) const;
  static std::string NumberButton(Parent& group);
  Parent* MakeParentsOf(const std::string& name);
  void Place(Field& field, const std::string& name);
  void PlaceInGroup(Field& field, const std::string& name);
  Written WriteBefore(const Field& field);
  void WriteField(const Field& field, const Written& written, int page);
  std::string FieldEntries(const Field& field) const;
  std::string ValueEntries(const Field& field) const;

  Document& document_;
  Fonts& fonts_;
  FieldTexts texts_;
  std::vector<Field> pending_;  // of the open page
  std::set<std::string, std::less<>> names_;
  std::map<std::string, Parent, std::less<>> parents_;
  std::vector<int> roots_;       // objects of /Fields
  std::vector<int> calculated_;  // objects of /CO
  int dingbats_ = 0;             // object of the font, once it is used
};

}  // namespace lm::pdf
