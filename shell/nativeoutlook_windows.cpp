// Outlook by late binding: names are looked up as they are used, so that every version of it will
// do and nothing of it is needed to build the program.
#include "shell/nativeoutlook.h"

#if defined(_WIN32)

#include "core/windowsheader.h"
// behind that one

#include <oleauto.h>

#include <utility>
#include <vector>

#include "core/text.h"

namespace lm::native {
namespace {

constexpr UINT kWindows1252 = 1252;
constexpr int kAppointmentItem = 1;

std::wstring Wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(kWindows1252, 0, text.data(), size, nullptr, 0)),
      L' ');
  MultiByteToWideChar(kWindows1252, 0, text.data(), size, wide.data(),
                      static_cast<int>(wide.size()));
  return wide;
}

// What has no place in Windows-1252 becomes "?".
std::string Narrow(const wchar_t* wide, UINT length) {
  const int size = static_cast<int>(length);
  std::string text(static_cast<std::size_t>(
                       WideCharToMultiByte(kWindows1252, 0, wide, size, nullptr, 0, "?", nullptr)),
                   ' ');
  WideCharToMultiByte(kWindows1252, 0, wide, size, text.data(), static_cast<int>(text.size()), "?",
                      nullptr);
  return text;
}

class Variant {
 public:
  Variant() { VariantInit(&value_); }
  explicit Variant(int number) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  explicit Variant(bool truth) : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Variant(Date date) : Variant() {  // both count the days from 30/12/1899
    value_.vt = VT_DATE;
    value_.date = date;
  }
  explicit Variant(std::string_view text) : Variant() {
    const std::wstring wide = Wide(text);
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  }
  Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  VARIANT* Raw() { return &value_; }
  IDispatch* Object() const { return value_.vt == VT_DISPATCH ? value_.pdispVal : nullptr; }
  std::string Text() {
    As(VT_BSTR);
    return value_.bstrVal ? Narrow(value_.bstrVal, SysStringLen(value_.bstrVal)) : "";
  }
  Date Time() {
    As(VT_DATE);
    return value_.date;
  }
  int Number() {
    As(VT_I4);
    return static_cast<int>(value_.lVal);
  }
  bool Truth() {
    As(VT_BOOL);
    return value_.boolVal != VARIANT_FALSE;
  }

 private:
  void As(VARTYPE type) {
    if (FAILED(VariantChangeType(&value_, &value_, 0, type)))
      throw OutlookFault("Outlook gave something unexpected.");
  }
  VARIANT value_;
};

// What Outlook itself says of a failure.
[[noreturn]] void Fail(std::string_view name, EXCEPINFO& told) {
  std::string why = "Outlook refused '" + std::string(name) + "'.";
  if (told.bstrDescription)
    why += " " + Narrow(told.bstrDescription, SysStringLen(told.bstrDescription));
  for (BSTR text : {told.bstrSource, told.bstrDescription, told.bstrHelpFile}) SysFreeString(text);
  throw OutlookFault(why);
}

class Object {
 public:
  Object() = default;
  explicit Object(Variant holder) : holder_(std::move(holder)) {
    if (!holder_.Object()) throw OutlookFault("Outlook gave no object.");
  }

  Variant Get(std::string_view name) { return Invoke(name, DISPATCH_PROPERTYGET, {}); }
  void Put(std::string_view name, Variant value) {
    Invoke(name, DISPATCH_PROPERTYPUT, List(std::move(value)));
  }
  Variant Call(std::string_view name) { return Invoke(name, DISPATCH_METHOD, {}); }
  template <typename Argument>
  Variant Call(std::string_view name, Argument argument) {
    return Invoke(name, DISPATCH_METHOD, List(Variant(argument)));
  }

 private:
  static std::vector<Variant> List(Variant value) {
    std::vector<Variant> list;
    list.push_back(std::move(value));
    return list;
  }

  Variant Invoke(std::string_view name, WORD how, std::vector<Variant> arguments) {
    std::wstring wide = Wide(name);
    LPOLESTR names = wide.data();
    DISPID id = 0, put = DISPID_PROPERTYPUT;
    EXCEPINFO told{};
    if (FAILED(holder_.Object()->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
      Fail(name, told);
    std::vector<VARIANT> raw;
    for (Variant& argument : arguments) raw.push_back(*argument.Raw());
    DISPPARAMS parameters{raw.data(), nullptr, static_cast<UINT>(raw.size()), 0};
    if (how == DISPATCH_PROPERTYPUT) {
      parameters.rgdispidNamedArgs = &put;
      parameters.cNamedArgs = 1;
    }
    Variant result;
    if (FAILED(holder_.Object()->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, how, &parameters,
                                        result.Raw(), &told, nullptr)))
      Fail(name, told);
    return result;
  }

  Variant holder_;
};

class Item : public OutlookItem {
 public:
  explicit Item(Object item) : item_(std::move(item)) {}

  OutlookProperties Read() override {
    return {item_.Get("Subject").Text(),      item_.Get("Start").Time(),
            item_.Get("End").Time(),          item_.Get("Location").Text(),
            item_.Get("ReminderSet").Truth(), item_.Get("Sensitivity").Number(),
            item_.Get("Importance").Number()};
  }
  void Write(const OutlookProperties& properties) override {
    item_.Put("Subject", Variant(std::string_view(properties.subject)));
    item_.Put("Start", Variant(properties.start));
    item_.Put("End", Variant(properties.end));
    item_.Put("Location", Variant(std::string_view(properties.location)));
    item_.Put("ReminderSet", Variant(properties.reminderSet));
    item_.Put("Sensitivity", Variant(properties.sensitivity));
    item_.Put("Importance", Variant(properties.importance));
  }
  void Save() override { item_.Call("Save"); }
  void Delete() override { item_.Call("Delete"); }

 private:
  Object item_;
};

class ItemList : public OutlookItems {
 public:
  explicit ItemList(Object items) : items_(std::move(items)) {}

  void Sort(std::string_view property) override { items_.Call("Sort", property); }
  void IncludeRecurrences(bool include) override {
    items_.Put("IncludeRecurrences", Variant(include));
  }
  std::unique_ptr<OutlookItems> Restrict(std::string_view filter) override {
    return std::make_unique<ItemList>(Object(items_.Call("Restrict", filter)));
  }
  int Count() override { return items_.Get("Count").Number(); }
  std::unique_ptr<OutlookItem> Item(int number) override {
    return std::make_unique<native::Item>(Object(items_.Call("Item", number)));
  }

 private:
  Object items_;
};

class Outlook : public OutlookPort {
 public:
  bool Start() override {
    try {
      CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
      CLSID id;
      Variant application;
      if (FAILED(CLSIDFromProgID(L"Outlook.Application", &id)) ||
          FAILED(CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                  reinterpret_cast<void**>(&application.Raw()->pdispVal))))
        return false;
      application.Raw()->vt = VT_DISPATCH;
      application_ = Object(std::move(application));
      session_ = Object(application_.Call("GetNamespace", std::string_view("MAPI")));
      return true;
    } catch (const OutlookFault&) {
      return false;
    }
  }
  std::unique_ptr<OutlookItems> Items(OutlookFolder folder) override {
    Object place(session_.Call("GetDefaultFolder", static_cast<int>(folder)));
    return std::make_unique<ItemList>(Object(place.Get("Items")));
  }
  std::unique_ptr<OutlookItem> CreateItem() override {
    return std::make_unique<Item>(Object(application_.Call("CreateItem", kAppointmentItem)));
  }

 private:
  Object application_, session_;
};

}  // namespace

std::unique_ptr<OutlookPort> MakeOutlook() { return std::make_unique<Outlook>(); }

}  // namespace lm::native

#endif
