/*
 * A host written in C against kelmora.h alone, loading libKelmora.so. It
 * plays the Periodical editing session: a tracing bridge in the running
 * object table, Main2 from its class object, a frame container built on the
 * host's own form, a callback that writes down every call it receives, a
 * stored article loaded, a DOI typed key by key. It then compares the calls
 * with the list in the file given as its argument, takes the container off
 * its form, lets go of everything, and asks whether the library can unload.
 *
 * Exit status 0 when the calls match, what a host may not do is refused
 * with the run time's numbers, every host object has been released by the
 * library, no failure was reported and the library can unload.
 */
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "kelmora.h"

enum kind { BRIDGE, TRACING, CALLBACK, FORM, CONTROLS, WRAPPER, SETTINGS, TEMPLATE, KINDS };

typedef struct host_object {
  enum kind kind;
  kelmora_object* control; /* WRAPPER: the control inside, one reference */
  int released;
} host_object;

#define MAX_LINES 256
static char* calls[MAX_LINES];
static int call_count;
static int failure_count;
static int live_host_objects;
static kelmora_object* tracing;
static kelmora_object* controls;
static kelmora_object* sited; /* the control on the form, as the form holds it */

static void die(const char* what, const kelmora_error* error) {
  fprintf(stderr, "%s failed: %d %s\n", what, error ? error->number : 0,
          error && error->description ? error->description : "");
  exit(2);
}

static void record(const char* format, ...) {
  char line[512];
  va_list list;
  va_start(list, format);
  vsnprintf(line, sizeof line, format, list);
  va_end(list);
  if (call_count < MAX_LINES) {
    calls[call_count] = malloc(strlen(line) + 1);
    strcpy(calls[call_count++], line);
  }
}

/* Late binding, the host's way round: name to id, then invoke. */
static int call(kelmora_object* object, const char* name, int32_t kind, kelmora_variant* arguments,
                int32_t count, kelmora_variant* result, kelmora_error* error) {
  int32_t dispid = 0;
  int32_t failed = kelmora_ids_of_names(object, name, &dispid, error);
  if (failed != 0)
    return failed;
  return kelmora_invoke(object, dispid, kind, arguments, count, result, error);
}

static void must(kelmora_object* object, const char* name, int32_t kind, kelmora_variant* arguments,
                 int32_t count, kelmora_variant* result) {
  kelmora_error error = {0, NULL};
  if (call(object, name, kind, arguments, count, result, &error) != 0)
    die(name, &error);
}

/* A widget as a host writes it: Name, with (Index) for an array member. */
static void describe(const kelmora_variant* value, char* out, size_t size) {
  kelmora_variant name, index;
  kelmora_error error = {0, NULL};
  if (value->type != KELMORA_VT_OBJECT || value->value.object == NULL) {
    snprintf(out, size, "Nothing");
    return;
  }
  kelmora_variant_init(&name);
  kelmora_variant_init(&index);
  if (call(value->value.object, "Name", KELMORA_PROPERTY_GET, NULL, 0, &name, &error) != 0) {
    snprintf(out, size, "Object");
  } else if (call(value->value.object, "Index", KELMORA_PROPERTY_GET, NULL, 0, &index, &error) ==
             0) {
    snprintf(out, size, "%s(%d)", name.value.string, index.value.integer);
  } else {
    snprintf(out, size, "%s", name.value.string);
  }
  kelmora_error_clear(&error);
  kelmora_variant_clear(&name);
  kelmora_variant_clear(&index);
}

static const char* yes_no(const kelmora_variant* value) {
  return value->value.boolean ? "True" : "False";
}

static const char* text(const kelmora_variant* value) {
  return value->type == KELMORA_VT_STRING ? value->value.string : "";
}

static kelmora_object* wrap(enum kind kind, kelmora_object* control);

static int32_t missing(kelmora_error* error) {
  kelmora_error_set(error, 438, "Object doesn't support this property or method");
  return 438;
}

static int32_t callback_member(const char* name, kelmora_variant* a, int32_t n,
                               kelmora_variant* result, kelmora_error* error) {
  char first[64], second[64];
  if (strcmp(name, "widgetChangeHandler") == 0 && n == 8) {
    describe(&a[3], first, sizeof first);
    describe(&a[4], second, sizeof second);
    record("widgetChangeHandler(%s, %d, %s, %s, %s, %s, %s, %d)", yes_no(&a[0]), a[1].value.integer,
           text(&a[2]), first, second, text(&a[5]), yes_no(&a[6]), a[7].value.integer);
  } else if ((strcmp(name, "CaptionToTitleType") == 0 || strcmp(name, "TitleTypeToCaption") == 0) &&
             n == 2) {
    record("%s(%d, %s)", name, a[0].value.integer, text(&a[1]));
    kelmora_variant_set_string(result, text(&a[1]));
  } else if (strcmp(name, "OptionButtonChanged") == 0 && n == 2) {
    record("OptionButtonChanged(%d, %d)", a[0].value.integer, a[1].value.integer);
  } else if (strcmp(name, "HandleMouseMove") == 0 && n == 2) {
    describe(&a[0], first, sizeof first);
    record("HandleMouseMove(%s, %s)", first, yes_no(&a[1]));
  } else if (strcmp(name, "HideSubform") == 0) {
    record("HideSubform()");
  } else if (strcmp(name, "ProcessTextField") == 0 && n == 5) {
    describe(&a[0], first, sizeof first);
    record("ProcessTextField(%s, %d, %s, %s, %s)", first, a[1].value.integer, yes_no(&a[2]),
           yes_no(&a[3]), text(&a[4]));
  } else if (strcmp(name, "HandleDateExit") == 0 && n == 2) {
    describe(&a[0], first, sizeof first);
    record("HandleDateExit(%s, %s)", first, yes_no(&a[1]));
  } else {
    return missing(error);
  }
  return 0;
}

/* The format of the session: family 2, page numbers, an access date
   format; every other member zero, False or empty. */
static int32_t settings_member(const char* name, kelmora_variant* result, kelmora_error* error) {
  static const char* const booleans[] = {
      "alwaysEnableAccessDate", "WebsiteImpliesDate", "esourceShowsAuthorPopup",
      "esourceHasTitle",        "esourceHasTo",       "emailListTitleVisible",
      "supportsWebtitle",       "SupportsURL",        "supportsAccessDate",
      "supportsSocialMedia"};
  size_t i;
  if (strcmp(name, "Format") == 0) {
    result->type = KELMORA_VT_LONG;
    result->value.long_value = 2;
    return 0;
  }
  if (strcmp(name, "DegreeSupport") == 0 || strcmp(name, "esourceType") == 0) {
    result->type = KELMORA_VT_LONG;
    return 0;
  }
  if (strcmp(name, "hasPeriodicalPageNumbers") == 0) {
    result->type = KELMORA_VT_BOOLEAN;
    result->value.boolean = -1;
    return 0;
  }
  for (i = 0; i < sizeof booleans / sizeof *booleans; ++i) {
    if (strcmp(name, booleans[i]) == 0) {
      result->type = KELMORA_VT_BOOLEAN;
      return 0;
    }
  }
  if (strcmp(name, "accessDateFormat") == 0) {
    kelmora_variant_set_string(result, "d mmmm yyyy");
    return 0;
  }
  if (strcmp(name, "tooltipTextJournal") == 0 || strcmp(name, "tooltipTextPeriodical") == 0) {
    kelmora_variant_set_string(result, "");
    return 0;
  }
  if (strcmp(name, "outputTemplates") == 0) {
    kelmora_object* made = wrap(TEMPLATE, NULL);
    kelmora_variant_set_object(result, made);
    kelmora_release(made);
    return 0;
  }
  return missing(error);
}

static const struct {
  const char* identifier;
  kelmora_guid clsid;
} controls_by_identifier[] = {
    {"Kelmora.FrameContainer",
     {0xD68709B7, 0x0D11, 0x4865, {0x8E, 0x29, 0x04, 0xA0, 0xC3, 0x62, 0x84, 0x82}}},
    {"Kelmora.Periodical",
     {0x17EA2174, 0x5DA8, 0x4076, {0x89, 0xDD, 0x2A, 0xA3, 0x42, 0x7B, 0x8E, 0xDC}}},
    {"Kelmora.NonPeriodical",
     {0xB8F3DA51, 0x0A2C, 0x464D, {0x8C, 0x69, 0xAC, 0xDB, 0x21, 0xB0, 0x51, 0x43}}},
    {"Kelmora.Esource",
     {0x823618C1, 0xBF34, 0x48C9, {0xA3, 0x45, 0x09, 0x1F, 0x95, 0x21, 0xC2, 0x1F}}},
};
static const kelmora_guid class_factory = {
    0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/* controls.Add(identifier, name): the control from its class object,
   placed on the form, handed back in a wrapper. */
static int32_t add_control(kelmora_variant* a, int32_t n, kelmora_variant* result,
                           kelmora_error* error) {
  size_t i;
  kelmora_object *factory = NULL, *control = NULL, *wrapper;
  if (n != 2)
    return missing(error);
  for (i = 0; i < sizeof controls_by_identifier / sizeof *controls_by_identifier; ++i) {
    if (strcmp(text(&a[0]), controls_by_identifier[i].identifier) == 0)
      break;
  }
  if (i == sizeof controls_by_identifier / sizeof *controls_by_identifier) {
    kelmora_error_set(error, 429, "ActiveX component can't create object");
    return 429;
  }
  if (DllGetClassObject(&controls_by_identifier[i].clsid, &class_factory, &factory) != 0) {
    kelmora_error_set(error, 429, "ActiveX component can't create object");
    return 429;
  }
  if (kelmora_create_instance(factory, &control, error) != 0 ||
      kelmora_control_site(control, text(&a[1]), error) != 0) {
    kelmora_release(factory);
    kelmora_release(control);
    return error->number;
  }
  kelmora_release(factory);
  kelmora_add_ref(control);
  sited = control;
  wrapper = wrap(WRAPPER, control);
  kelmora_variant_set_object(result, wrapper);
  kelmora_release(wrapper);
  return 0;
}

static int32_t tracing_member(const char* name, kelmora_variant* a, int32_t n,
                              kelmora_variant* result) {
  if (strcmp(name, "vbwBeforeDump") == 0 && n == 7) {
    fprintf(stderr, "failure: %s.%s %d %s\n", text(&a[1]), text(&a[2]), a[4].value.integer,
            text(&a[5]));
    ++failure_count;
  } else if (strcmp(name, "vbwReportParameter") == 0) {
    kelmora_variant_set_string(result, "");
  } else if (strcmp(name, "vbwAfterDump") == 0) {
    result->type = KELMORA_VT_LONG;
    result->value.long_value = 5; /* go on with the next statement */
  }
  return 0;
}

static int32_t host_invoke(void* self, const char* name, int32_t kind, kelmora_variant* a,
                           int32_t n, kelmora_variant* result, kelmora_error* error) {
  host_object* object = self;
  (void)kind;
  switch (object->kind) {
    case BRIDGE:
      if (strcmp(name, "ErrorParams") != 0)
        return missing(error);
      kelmora_variant_set_object(result, tracing);
      return 0;
    case TRACING:
      return tracing_member(name, a, n, result);
    case CALLBACK:
      return callback_member(name, a, n, result, error);
    case FORM:
      if (strcmp(name, "controls") != 0)
        return missing(error);
      kelmora_variant_set_object(result, controls);
      return 0;
    case CONTROLS:
      if (strcmp(name, "Add") != 0)
        return missing(error);
      return add_control(a, n, result, error);
    case WRAPPER:
      if (strcmp(name, "Object") != 0)
        return missing(error);
      kelmora_variant_set_object(result, object->control);
      return 0;
    case SETTINGS:
      return settings_member(name, result, error);
    case TEMPLATE:
      if (strcmp(name, "isURL") != 0)
        return missing(error);
      result->type = KELMORA_VT_BOOLEAN;
      return 0;
    case KINDS:
      break;
  }
  return missing(error);
}

static void host_release(void* self) {
  host_object* object = self;
  kelmora_release(object->control);
  --live_host_objects;
  free(object);
}

static const kelmora_host_vtable vtable = {host_invoke, host_release};

static kelmora_object* wrap(enum kind kind, kelmora_object* control) {
  host_object* object = calloc(1, sizeof *object);
  object->kind = kind;
  object->control = control;
  ++live_host_objects;
  return kelmora_host_object(&vtable, object);
}

/* Argument helpers. */
static void integer(kelmora_variant* v, int16_t value) {
  kelmora_variant_init(v);
  v->type = KELMORA_VT_INTEGER;
  v->value.integer = value;
}

static void boolean(kelmora_variant* v, int value) {
  kelmora_variant_init(v);
  v->type = KELMORA_VT_BOOLEAN;
  v->value.boolean = value ? -1 : 0;
}

static void object(kelmora_variant* v, kelmora_object* value) {
  kelmora_variant_init(v);
  kelmora_variant_set_object(v, value);
}

static void clear(kelmora_variant* v, int count) {
  int i;
  for (i = 0; i < count; ++i) kelmora_variant_clear(&v[i]);
}

/* The container's two-argument members that take a type and a value. */
static void on_type(kelmora_object* container, const char* name, kelmora_variant* second) {
  kelmora_variant a[2];
  integer(&a[0], 1);
  a[1] = *second;
  must(container, name, KELMORA_METHOD, a, 2, NULL);
  clear(a, 2);
}

static kelmora_object* text_box(kelmora_object* container, int16_t index) {
  kelmora_variant controls_of, a[2], found;
  kelmora_object* box;
  kelmora_variant_init(&controls_of);
  kelmora_variant_init(&found);
  must(container, "getControls", KELMORA_METHOD, NULL, 0, &controls_of);
  kelmora_variant_init(&a[0]);
  kelmora_variant_set_string(&a[0], "TextBox");
  integer(&a[1], index);
  must(controls_of.value.object, "Item", KELMORA_PROPERTY_GET, a, 2, &found);
  box = found.value.object;
  kelmora_add_ref(box);
  clear(a, 2);
  kelmora_variant_clear(&found);
  kelmora_variant_clear(&controls_of);
  return box;
}

static void user(int32_t failed, const char* what, kelmora_error* error) {
  if (failed != 0)
    die(what, error);
}

/* What a host cannot do: create Model or TranslatorWrapper, call a member
   that is not there, leave out a required argument. Each answer comes back
   as the run time's number. */
static int refusals(kelmora_object* main_object) {
  static const kelmora_guid results_only[] = {
      {0x30274DA4, 0x86E5, 0x46CC, {0x8F, 0x89, 0xE2, 0xBF, 0xA2, 0xD2, 0x73, 0xC2}},
      {0x050102D6, 0xCD95, 0x47D7, {0xB1, 0x07, 0x1C, 0x23, 0x77, 0xDD, 0xB2, 0x88}}};
  kelmora_error error = {0, NULL};
  kelmora_object* none = NULL;
  int32_t dispid = 0, answer;
  int i, ok = 1;
  for (i = 0; i < 2; ++i) {
    answer = DllGetClassObject(&results_only[i], &class_factory, &none);
    if (answer != KELMORA_CLASS_E_CLASSNOTAVAILABLE || none != NULL) {
      fprintf(stderr, "a class object for a class a host cannot create: %d\n", answer);
      ok = 0;
    }
  }
  if (kelmora_ids_of_names(main_object, "Show", &dispid, &error) != 438 || error.number != 438) {
    fprintf(stderr, "an unknown name did not fail with 438\n");
    ok = 0;
  }
  kelmora_error_clear(&error);
  if (kelmora_ids_of_names(main_object, "changeformattype", &dispid, &error) != 0 ||
      kelmora_invoke(main_object, dispid, KELMORA_METHOD, NULL, 0, NULL, &error) != 449 ||
      strcmp(error.description, "Argument not optional") != 0) {
    fprintf(stderr, "a missing argument did not fail with 449\n");
    ok = 0;
  }
  kelmora_error_clear(&error);
  return ok;
}

static int compare(const char* path) {
  char line[512];
  int i = 0, same = 1;
  FILE* file = fopen(path, "r");
  if (file == NULL) {
    fprintf(stderr, "cannot read %s\n", path);
    return 0;
  }
  while (fgets(line, sizeof line, file) != NULL) {
    line[strcspn(line, "\n")] = '\0';
    if (i >= call_count || strcmp(line, calls[i]) != 0) {
      fprintf(stderr, "call %d: expected \"%s\", got \"%s\"\n", i, line,
              i < call_count ? calls[i] : "(none)");
      same = 0;
    }
    ++i;
  }
  fclose(file);
  for (; i < call_count; ++i) {
    fprintf(stderr, "call %d: unexpected \"%s\"\n", i, calls[i]);
    same = 0;
  }
  return same;
}

int main(int argc, char** argv) {
  static const char* const stored[26] = {
      [0] = "On tides", [1] = "Ada Lovelace", [7] = "False",          [12] = "Nature",
      [13] = "False",   [14] = "True",        [15] = "False",         [16] = "False",
      [20] = "False",   [21] = "Issue type",  [23] = "Article title", [24] = "Refers to"};
  static const kelmora_guid main2 = {
      0xA9128F7F, 0x8856, 0x44FF, {0xB1, 0x23, 0x74, 0x7A, 0x84, 0xF4, 0xE6, 0x85}};
  kelmora_error error = {0, NULL};
  kelmora_object *bridge, *callback, *form, *settings, *factory = NULL, *main_object = NULL;
  kelmora_object *container, *box;
  kelmora_variant a[2], result, values;
  int i, ok;

  if (argc != 2) {
    fprintf(stderr, "usage: %s expected-calls.txt\n", argv[0]);
    return 2;
  }

  /* The host's objects; the bridge runs before anything of the library. */
  tracing = wrap(TRACING, NULL);
  controls = wrap(CONTROLS, NULL);
  bridge = wrap(BRIDGE, NULL);
  callback = wrap(CALLBACK, NULL);
  form = wrap(FORM, NULL);
  settings = wrap(SETTINGS, NULL);
  user(kelmora_register_running_object("TessalyDot.BridgeToVB", bridge, &error), "bridge", &error);

  if (DllGetClassObject(&main2, &class_factory, &factory) != KELMORA_S_OK)
    die("factory", NULL);
  user(kelmora_create_instance(factory, &main_object, &error), "Main2", &error);
  kelmora_release(factory);
  ok = refusals(main_object);

  /* BuildFrameContainer(form, name) gives back the form's wrapper. */
  object(&a[0], form);
  kelmora_variant_init(&a[1]);
  kelmora_variant_set_string(&a[1], "Container");
  kelmora_variant_init(&result);
  must(main_object, "BuildFrameContainer", KELMORA_METHOD, a, 2, &result);
  clear(a, 2);
  container = ((host_object*)kelmora_host_self(result.value.object))->control;
  kelmora_add_ref(container);
  kelmora_variant_clear(&result);

  object(&a[0], callback);
  must(container, "initialize", KELMORA_METHOD, a, 1, NULL);
  clear(a, 1);
  integer(&a[0], 1);
  must(container, "SetVisibleFrame", KELMORA_METHOD, a, 1, NULL);
  object(&a[0], settings);
  on_type(container, "ToggleFormatDependentWidgets", &a[0]);

  kelmora_variant_init(&values);
  kelmora_variant_set_array(&values, 26);
  for (i = 0; i < 26; ++i) kelmora_variant_set_string(&values.value.array.items[i], stored[i]);
  on_type(container, "SynchronizeFieldsWithModel", &values);

  integer(&a[0], -1);
  boolean(&a[1], 1);
  must(container, "UpdateFrame", KELMORA_METHOD, a, 2, NULL);

  box = text_box(container, 8);
  user(kelmora_user_focus(box, &error), "focus", &error);
  user(kelmora_user_type(box, "10.1/x", &error), "type", &error);
  kelmora_release(box);
  integer(&a[0], 1);
  integer(&a[1], 5);
  must(container, "ExecuteDependentWidgetToggler", KELMORA_METHOD, a, 2, NULL);
  integer(&a[0], 2);
  boolean(&a[1], 1);
  must(container, "UpdateFrame", KELMORA_METHOD, a, 2, NULL);
  box = text_box(container, 13);
  user(kelmora_user_focus(box, &error), "focus", &error);
  kelmora_release(box);
  user(kelmora_user_focus_away(&error), "focus away", &error);

  for (i = 0; i < call_count; ++i) printf("%s\n", calls[i]);
  ok = compare(argv[1]) && ok;

  if (DllCanUnloadNow() != KELMORA_S_FALSE) {
    fprintf(stderr, "the library would unload under a live container\n");
    ok = 0;
  }

  /* The end: the form takes the container off, the host lets go. */
  user(kelmora_control_close(sited, &error), "close", &error);
  kelmora_release(sited);
  kelmora_release(container);
  kelmora_release(main_object);
  user(kelmora_revoke_running_object("TessalyDot.BridgeToVB", &error), "revoke", &error);
  kelmora_release(bridge);
  kelmora_release(callback);
  kelmora_release(form);
  kelmora_release(settings);
  kelmora_release(controls);
  kelmora_release(tracing);
  for (i = 0; i < call_count; ++i) free(calls[i]);

  if (failure_count != 0) {
    fprintf(stderr, "%d failures reported\n", failure_count);
    ok = 0;
  }
  if (live_host_objects != 0) {
    fprintf(stderr, "the library still holds %d host objects\n", live_host_objects);
    ok = 0;
  }
  if (DllCanUnloadNow() != KELMORA_S_OK) {
    fprintf(stderr, "the library cannot unload: objects are alive\n");
    ok = 0;
  }
  return ok ? 0 : 1;
}
