// Plays one random session per input through the C interface alone, as a
// foreign host does: a tracing bridge, a form, a callback and format
// settings that are host objects answering by name. Each of their members
// may answer as asked, lack the member, fail with any number, answer with
// the wrong type (texts, numbers, NaN, objects, arrays nested however deep)
// or call back into the library first: take the control off its form,
// release the host's own handles, revoke the bridge, call the container or
// type into a widget. The driver invokes members of every object it holds
// by name with random arguments, types, focuses, and at the end lets go of
// everything.
//
// What must hold: no sanitizer report and no leak; every call comes back
// with a number, never a crash or an exception; once the host has released
// everything and revoked its bridge, the library can unload.

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "automation/kelmora.h"

namespace {

constexpr const char* kBridge = "TessalyDot.BridgeToVB";

struct Session;

enum class Kind { Bridge, Tracing, Callback, Form, Controls, Wrapper, Settings, Template };

struct HostObject {
  Kind kind;
  Session* session;
  kelmora_object* control = nullptr;  // Wrapper: one reference
};

// Names a host calls, per object; a few that no object has.
const char* const kContainerMembers[] = {"initialize",
                                         "setReferenceListColumnNames",
                                         "SetVisibleFrame",
                                         "UpdateFrame",
                                         "initializeFormatDependentWidgetToggler",
                                         "ToggleFormatDependentWidgets",
                                         "SynchronizeFieldsWithModel",
                                         "HandleUnsupportedReferenceType",
                                         "ExecuteDependentWidgetToggler",
                                         "Reset",
                                         "SetFocus",
                                         "getControls",
                                         "widgetChangeHandler",
                                         "CaptionToTitleType",
                                         "TitleTypeToCaption",
                                         "OptionButtonChanged",
                                         "HandleMouseMove",
                                         "HandleDragDrop",
                                         "UserFormEnterFocus",
                                         "ProcessTextField",
                                         "Visible",
                                         "NoSuchMember"};
const char* const kMainMembers[] = {"ChangeFormatType", "BuildFrameContainer", "Model"};
const char* const kOtherMembers[] = {"initializedToFormat",
                                     "keyToInternalIndex",
                                     "KeyIndex",
                                     "SecondKeyIndex",
                                     "setting",
                                     "controlIndices",
                                     "Item",
                                     "Count",
                                     "Text",
                                     "Caption",
                                     "Name",
                                     "Index",
                                     "Visible",
                                     "Enabled",
                                     "SetFocus",
                                     "Tag",
                                     "value",
                                     "Exists"};
const char* const kIdentifiers[] = {"Kelmora.FrameContainer", "Kelmora.Periodical",
                                    "Kelmora.NonPeriodical", "Kelmora.Esource", "Nobody.Nothing"};
const kelmora_guid kClassIds[] = {
    {0xA9128F7F, 0x8856, 0x44FF, {0xB1, 0x23, 0x74, 0x7A, 0x84, 0xF4, 0xE6, 0x85}},  // Main2
    {0xD68709B7, 0x0D11, 0x4865, {0x8E, 0x29, 0x04, 0xA0, 0xC3, 0x62, 0x84, 0x82}},
    {0x17EA2174, 0x5DA8, 0x4076, {0x89, 0xDD, 0x2A, 0xA3, 0x42, 0x7B, 0x8E, 0xDC}},
    {0xB8F3DA51, 0x0A2C, 0x464D, {0x8C, 0x69, 0xAC, 0xDB, 0x21, 0xB0, 0x51, 0x43}},
    {0x823618C1, 0xBF34, 0x48C9, {0xA3, 0x45, 0x09, 0x1F, 0x95, 0x21, 0xC2, 0x1F}},
};
const kelmora_guid kClassFactory = {
    0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

int32_t hostInvoke(void* self, const char* name, int32_t kind, kelmora_variant* arguments,
                   int32_t count, kelmora_variant* result, kelmora_error* error);
void hostRelease(void* self);
const kelmora_host_vtable kVtable = {hostInvoke, hostRelease};

struct Session {
  FuzzedDataProvider data;
  // The host's own references; released at the end or by a re-entry.
  std::vector<kelmora_object*> held;
  kelmora_object* sited = nullptr;  // the control on the form, as the form holds it
  kelmora_object* tracing = nullptr;
  int liveHostObjects = 0;
  int depth = 0;  // re-entries in progress

  Session(const uint8_t* bytes, size_t size) : data(bytes, size) {}

  static void messageBox(void* context, const char*) {
    auto& session = *static_cast<Session*>(context);
    if (session.depth < 3 && session.data.remaining_bytes() > 0 && session.data.ConsumeBool()) {
      ++session.depth;
      session.act();
      --session.depth;
    }
  }

  kelmora_object* make(Kind kind, kelmora_object* control = nullptr) {
    ++liveHostObjects;
    return kelmora_host_object(&kVtable, new HostObject{kind, this, control});
  }

  void keep(kelmora_object* object) {
    if (object != nullptr)
      held.push_back(object);
  }

  kelmora_object* anyHeld() {
    if (held.empty())
      return nullptr;
    return held[data.ConsumeIntegralInRange<size_t>(0, held.size() - 1)];
  }

  // A random value of any kind the interface knows, or of none.
  void value(kelmora_variant& out, int nesting = 0) {
    kelmora_variant_init(&out);
    switch (data.ConsumeIntegralInRange<int>(0, 11)) {
      case 0:
        out.type = KELMORA_VT_INTEGER;
        out.value.integer = data.ConsumeIntegral<int16_t>();
        return;
      case 1:
        out.type = KELMORA_VT_LONG;
        out.value.long_value = data.ConsumeIntegral<int32_t>();
        return;
      case 2:
        out.type = KELMORA_VT_SINGLE;
        out.value.single = data.ConsumeBool() ? NAN : data.ConsumeFloatingPoint<float>();
        return;
      case 3:
        out.type = KELMORA_VT_BOOLEAN;
        out.value.boolean = data.ConsumeBool() ? -1 : data.ConsumeIntegral<int16_t>();
        return;
      case 4:
      case 5:
        kelmora_variant_set_string(&out, data.ConsumeRandomLengthString(24).c_str());
        return;
      case 6:
        kelmora_variant_set_object(&out, anyHeld());
        return;
      case 7:
        out.type = KELMORA_VT_MISSING;
        return;
      case 8: {
        // Deep now and then: far past what the library follows.
        const int levels = data.ConsumeBool() ? data.ConsumeIntegralInRange<int>(60, 3000) : 1;
        kelmora_variant* level = &out;
        for (int i = 0; i < levels; ++i) {
          kelmora_variant_set_array(level, 1);
          level = &level->value.array.items[0];
        }
        kelmora_variant_set_string(level, "x");
        return;
      }
      case 9: {
        if (nesting > 2)
          return;
        const int32_t size = data.ConsumeIntegralInRange<int32_t>(0, 30);
        kelmora_variant_set_array(&out, size);
        for (int32_t i = 0; i < size; ++i) value(out.value.array.items[i], nesting + 1);
        return;
      }
      case 10:
        out.type = data.ConsumeIntegral<int16_t>();  // a kind nobody knows
        return;
      default:
        return;  // empty
    }
  }

  // One call by name with random arguments; the result is kept when it is
  // an object.
  void call(kelmora_object* target, const char* name) {
    if (target == nullptr)
      return;
    kelmora_error error{0, nullptr};
    int32_t dispid = 0;
    if (kelmora_ids_of_names(target, name, &dispid, &error) != 0) {
      kelmora_error_clear(&error);
      dispid = data.ConsumeIntegral<int32_t>();
    }
    const int32_t count = data.ConsumeIntegralInRange<int32_t>(0, 7);
    std::vector<kelmora_variant> arguments(static_cast<size_t>(count) + 1);
    for (int32_t i = 0; i < count; ++i) value(arguments[static_cast<size_t>(i)]);
    kelmora_variant result;
    kelmora_variant_init(&result);
    const int32_t kinds[] = {KELMORA_METHOD, KELMORA_PROPERTY_GET, KELMORA_PROPERTY_PUT,
                             data.ConsumeIntegral<int32_t>()};
    const int32_t kind = kinds[data.ConsumeIntegralInRange<int>(0, 3)];
    kelmora_invoke(target, dispid, kind, arguments.data(), count, &result, &error);
    kelmora_error_clear(&error);
    for (auto& argument : arguments) kelmora_variant_clear(&argument);
    if (result.type == KELMORA_VT_OBJECT && result.value.object != nullptr)
      keep(kelmora_add_ref(result.value.object) > 0 ? result.value.object : nullptr);
    kelmora_variant_clear(&result);
  }

  // What a host may do from inside one of its members, or between calls.
  void act() {
    kelmora_error error{0, nullptr};
    switch (data.ConsumeIntegralInRange<int>(0, 9)) {
      case 0:
        if (sited != nullptr)
          kelmora_control_close(sited, &error);
        break;
      case 1:
        if (!held.empty()) {
          const size_t i = data.ConsumeIntegralInRange<size_t>(0, held.size() - 1);
          kelmora_release(held[i]);
          held.erase(held.begin() + static_cast<std::ptrdiff_t>(i));
        }
        break;
      case 2:
        kelmora_revoke_running_object(kBridge, &error);
        break;
      case 3:
        kelmora_user_focus(anyHeld(), &error);
        break;
      case 4:
        kelmora_user_type(anyHeld(), data.ConsumeRandomLengthString(8).c_str(), &error);
        break;
      case 5:
        switch (data.ConsumeIntegralInRange<int>(0, 9)) {
          case 0:
            kelmora_user_focus_away(&error);
            break;
          case 1:
            kelmora_user_clear(anyHeld(), &error);
            break;
          case 2:
            kelmora_user_select_index(anyHeld(), data.ConsumeIntegral<int16_t>(), &error);
            break;
          case 3:
            kelmora_user_select_text(anyHeld(), data.ConsumeRandomLengthString(8).c_str(), &error);
            break;
          case 4:
            kelmora_user_click(anyHeld(), &error);
            break;
          case 5:
            kelmora_user_check(anyHeld(), data.ConsumeIntegral<int16_t>(), &error);
            break;
          case 6:
            kelmora_user_mouse_move(anyHeld(), &error);
            break;
          case 7: {
            kelmora_object* left = nullptr;
            kelmora_user_drop(anyHeld(), anyHeld(), &left, &error);
            kelmora_release(left);
            break;
          }
          case 8: {
            kelmora_variant out;
            kelmora_variant_init(&out);
            kelmora_interfaces_of(anyHeld(), &out, &error);
            kelmora_variant_clear(&out);
            break;
          }
          default:
            // Message boxes go to the host, which may call back in too.
            kelmora_set_message_box(data.ConsumeBool() ? &Session::messageBox : nullptr, this,
                                    &error);
            break;
        }
        break;
      case 6:
        call(anyHeld(),
             kOtherMembers[data.ConsumeIntegralInRange<size_t>(0, std::size(kOtherMembers) - 1)]);
        break;
      case 7:
        call(anyHeld(),
             kMainMembers[data.ConsumeIntegralInRange<size_t>(0, std::size(kMainMembers) - 1)]);
        break;
      default:
        call(anyHeld(), kContainerMembers[data.ConsumeIntegralInRange<size_t>(
                            0, std::size(kContainerMembers) - 1)]);
        break;
    }
    kelmora_error_clear(&error);
  }

  // controls.Add: the control from its class object, placed on the form.
  int32_t addControl(kelmora_variant* a, int32_t n, kelmora_variant* result, kelmora_error* error) {
    if (n != 2 || a[0].type != KELMORA_VT_STRING || a[1].type != KELMORA_VT_STRING) {
      kelmora_error_set(error, 5, "bad arguments");
      return 5;
    }
    const std::string identifier = a[0].value.string;
    size_t which = 0;
    while (which + 1 < std::size(kIdentifiers) && identifier != kIdentifiers[which]) ++which;
    kelmora_object* factory = nullptr;
    kelmora_object* control = nullptr;
    if (which + 1 == std::size(kIdentifiers) ||
        DllGetClassObject(&kClassIds[which + 1], &kClassFactory, &factory) != 0) {
      kelmora_error_set(error, 429, "ActiveX component can't create object");
      return 429;
    }
    const int32_t failed = kelmora_create_instance(factory, &control, error);
    kelmora_release(factory);
    if (failed != 0)
      return failed;
    if (const int32_t refused = kelmora_control_site(control, a[1].value.string, error)) {
      kelmora_release(control);
      return refused;
    }
    if (sited != nullptr)
      held.push_back(sited);  // the form's earlier control stays the host's to release
    sited = control;
    kelmora_object* wrapper = make(Kind::Wrapper, kelmora_add_ref(control) > 0 ? control : nullptr);
    kelmora_variant_set_object(result, wrapper);
    kelmora_release(wrapper);
    return 0;
  }

  // An answer as asked for by member, or a wrong one.
  int32_t answer(HostObject& object, const char* name, kelmora_variant* a, int32_t n,
                 kelmora_variant* result, kelmora_error* error) {
    const std::string member = name;
    switch (object.kind) {
      case Kind::Bridge:
        if (member != "ErrorParams")
          break;
        kelmora_variant_set_object(result, tracing);
        return 0;
      case Kind::Tracing:
        if (member == "vbwAfterDump") {
          result->type = KELMORA_VT_LONG;
          const int32_t answers[] = {0, 3, 4, 5, 5, 5};
          result->value.long_value = answers[data.ConsumeIntegralInRange<size_t>(0, 5)];
        } else if (member == "vbwReportParameter") {
          kelmora_variant_set_string(result, "p");
        }
        return 0;
      case Kind::Form:
        if (member != "controls")
          break;
        {
          kelmora_object* controls = make(Kind::Controls);
          kelmora_variant_set_object(result, controls);
          kelmora_release(controls);
        }
        return 0;
      case Kind::Controls:
        if (member != "Add")
          break;
        return addControl(a, n, result, error);
      case Kind::Wrapper:
        if (member != "Object")
          break;
        kelmora_variant_set_object(result, object.control);
        return 0;
      case Kind::Settings:
        if (member == "Format" || member == "DegreeSupport" || member == "esourceType") {
          result->type = KELMORA_VT_LONG;
          result->value.long_value = data.ConsumeIntegralInRange<int32_t>(-1, 4);
        } else if (member == "outputTemplates") {
          kelmora_object* made = make(Kind::Template);
          kelmora_variant_set_object(result, made);
          kelmora_release(made);
        } else if (member == "accessDateFormat" || member.starts_with("tooltip")) {
          kelmora_variant_set_string(result, data.ConsumeBool() ? "" : "d mmmm yyyy");
        } else {
          result->type = KELMORA_VT_BOOLEAN;
          result->value.boolean = data.ConsumeBool() ? -1 : 0;
        }
        return 0;
      case Kind::Template:
        if (member != "isURL")
          break;
        result->type = KELMORA_VT_BOOLEAN;
        result->value.boolean = data.ConsumeBool() ? -1 : 0;
        return 0;
      case Kind::Callback:
        if (member == "CaptionToTitleType" || member == "TitleTypeToCaption") {
          kelmora_variant_set_string(
              result, n == 2 && a[1].type == KELMORA_VT_STRING ? a[1].value.string : "");
        } else if (member == "widgetChangeHandler" && n == 8 && data.ConsumeBool()) {
          kelmora_variant_clear(&a[4]);
          value(a[4]);  // another second control, or anything else
        } else if (member == "HandleDragDrop" && n == 1 && data.ConsumeBool()) {
          kelmora_variant_clear(&a[0]);
          value(a[0]);
        }
        return 0;
    }
    kelmora_error_set(error, 438, "Object doesn't support this property or method");
    return 438;
  }

  int32_t invoke(HostObject& object, const char* name, kelmora_variant* a, int32_t n,
                 kelmora_variant* result, kelmora_error* error) {
    if (data.remaining_bytes() == 0)
      return answer(object, name, a, n, result, error);
    // Re-entries are bounded, so that a session ends.
    if (depth < 3 && data.ConsumeIntegralInRange<int>(0, 7) == 0) {
      ++depth;
      act();
      --depth;
    }
    switch (data.ConsumeIntegralInRange<int>(0, 15)) {
      case 0:
        kelmora_error_set(error, 438, "Object doesn't support this property or method");
        return 438;
      case 1: {
        const int32_t number = data.ConsumeIntegral<int32_t>();
        kelmora_error_set(error, number, "the host failed");
        return number == 0 ? 5 : number;
      }
      case 2:
        kelmora_variant_clear(result);
        value(*result);  // the wrong type, perhaps
        return 0;
      default:
        return answer(object, name, a, n, result, error);
    }
  }

  void play() {
    kelmora_error error{0, nullptr};
    tracing = make(Kind::Tracing);
    kelmora_object* bridge = make(Kind::Bridge);
    kelmora_register_running_object(kBridge, bridge, &error);
    kelmora_release(bridge);
    kelmora_error_clear(&error);

    {
      kelmora_variant info;
      kelmora_variant_init(&info);
      kelmora_type_info(&info, &error);
      kelmora_variant_clear(&info);
      kelmora_error_clear(&error);
    }
    kelmora_object* factory = nullptr;
    kelmora_object* main = nullptr;
    if (DllGetClassObject(&kClassIds[0], &kClassFactory, &factory) == 0) {
      kelmora_create_instance(factory, &main, &error);
      kelmora_release(factory);
    }
    kelmora_error_clear(&error);
    keep(main);
    kelmora_object* form = make(Kind::Form);
    kelmora_object* callback = make(Kind::Callback);
    kelmora_object* settings = make(Kind::Settings);
    keep(form);
    keep(callback);
    keep(settings);

    // The usual start, so that most inputs reach the frames.
    {
      kelmora_variant a[2];
      kelmora_variant_init(&a[0]);
      kelmora_variant_set_object(&a[0], form);
      kelmora_variant_init(&a[1]);
      kelmora_variant_set_string(&a[1], "Container");
      kelmora_variant result;
      kelmora_variant_init(&result);
      int32_t dispid = 0;
      if (main != nullptr &&
          kelmora_ids_of_names(main, "BuildFrameContainer", &dispid, &error) == 0 &&
          kelmora_invoke(main, dispid, KELMORA_METHOD, a, 2, &result, &error) == 0 &&
          result.type == KELMORA_VT_OBJECT && result.value.object != nullptr) {
        keep(kelmora_add_ref(result.value.object) > 0 ? result.value.object : nullptr);
      }
      kelmora_error_clear(&error);
      kelmora_variant_clear(&result);
      kelmora_variant_clear(&a[0]);
      kelmora_variant_clear(&a[1]);
    }
    while (data.remaining_bytes() > 0) act();

    // The end: the form takes its control off, the host lets go of all.
    if (sited != nullptr) {
      kelmora_control_close(sited, &error);
      kelmora_error_clear(&error);
      kelmora_release(sited);
      sited = nullptr;
    }
    for (auto* object : held) kelmora_release(object);
    held.clear();
    kelmora_revoke_running_object(kBridge, &error);
    kelmora_error_clear(&error);
    kelmora_set_message_box(nullptr, nullptr, &error);
    kelmora_error_clear(&error);
    kelmora_release(tracing);
    tracing = nullptr;
    if (DllCanUnloadNow() != KELMORA_S_OK || liveHostObjects != 0) {
      std::fprintf(
          stderr,
          "the library cannot unload after the host let go of everything (%d host objects held)\n",
          liveHostObjects);
      std::abort();
    }
  }
};

int32_t hostInvoke(void* self, const char* name, int32_t, kelmora_variant* arguments, int32_t count,
                   kelmora_variant* result, kelmora_error* error) {
  auto& object = *static_cast<HostObject*>(self);
  return object.session->invoke(object, name, arguments, count, result, error);
}

void hostRelease(void* self) {
  auto* object = static_cast<HostObject*>(self);
  --object->session->liveHostObjects;
  kelmora_release(object->control);
  delete object;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  // A thread of its own per session, as a host's thread: nothing of one
  // session's per-thread state reaches the next.
  std::thread([&] { Session(bytes, size).play(); }).join();
  return 0;
}
