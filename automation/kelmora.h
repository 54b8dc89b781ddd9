/*
 * The C interface of the Kelmora component library (libKelmora.so).
 *
 * A host in any language loads the shared library, asks a class object
 * for Main2, and from then on reaches every library object late-bound: it
 * looks a member up by name (kelmora_ids_of_names) and calls it by dispatch
 * id (kelmora_invoke) with its arguments as variants. The library reaches
 * the host's objects (callback, form, format settings, tracing bridge, drag
 * data) the same way in reverse: the host wraps each in a kelmora_object
 * with kelmora_host_object, and the library calls its members by name.
 *
 * Conventions
 *   - Every object is reference counted. A function that hands out an
 *     object (an out parameter, a result variant) hands out one reference,
 *     which the receiver gives back with kelmora_release. An object inside
 *     a variant belongs to the variant: kelmora_variant_clear releases it.
 *   - Arguments go in call order (the first argument first) and by
 *     reference: after a call, each argument holds what the callee left in
 *     it. An argument of type KELMORA_VT_MISSING, or one past `count`, is
 *     omitted and takes its default.
 *   - Booleans are 16 bits, True -1 and False 0. Strings are UTF-8.
 *   - Functions named kelmora_* return 0 on success or the run-time error
 *     number of the failure, and then fill *error (when error is not NULL)
 *     with the number and its description. An error starts as {0, NULL}
 *     and goes back with kelmora_error_clear. No failure of the library
 *     ever leaves it any other way.
 *   - All objects belong to the thread that made them.
 */
#ifndef KELMORA_H
#define KELMORA_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct kelmora_object kelmora_object;

typedef struct kelmora_guid {
  uint32_t data1;
  uint16_t data2;
  uint16_t data3;
  uint8_t data4[8];
} kelmora_guid;

/* The kinds of value a variant holds, numbered as the component model
   numbers them. KELMORA_VT_ARRAY is an array of variants. Arrays may hold
   arrays down to KELMORA_MAX_ARRAY_DEPTH levels, the outermost counting as
   one: an argument, a result or a host object's answer nested deeper fails
   with 28, "Out of stack space". kelmora_variant_clear takes any depth. */
#define KELMORA_MAX_ARRAY_DEPTH 64

enum {
  KELMORA_VT_EMPTY = 0,
  KELMORA_VT_INTEGER = 2,
  KELMORA_VT_LONG = 3,
  KELMORA_VT_SINGLE = 4,
  KELMORA_VT_STRING = 8,
  KELMORA_VT_OBJECT = 9,
  KELMORA_VT_MISSING = 10,
  KELMORA_VT_BOOLEAN = 11,
  KELMORA_VT_ARRAY = 0x200C
};

typedef struct kelmora_variant {
  int32_t type;
  union {
    int16_t integer;
    int32_t long_value;
    float single;
    int16_t boolean;
    char* string;           /* owned by the variant; set it with kelmora_variant_set_string */
    kelmora_object* object; /* one reference, owned by the variant; NULL is Nothing */
    struct {
      int32_t count;
      struct kelmora_variant* items; /* owned by the variant */
    } array;
  } value;
} kelmora_variant;

typedef struct kelmora_error {
  int32_t number;
  char* description; /* owned; give it back with kelmora_error_clear */
} kelmora_error;

/* Invoke kinds. */
enum { KELMORA_METHOD = 1, KELMORA_PROPERTY_GET = 2, KELMORA_PROPERTY_PUT = 4 };

/* The results of the four entry points, as the component model has them. */
#define KELMORA_S_OK 0
#define KELMORA_S_FALSE 1
#define KELMORA_E_NOINTERFACE ((int32_t)0x80004002)
#define KELMORA_E_POINTER ((int32_t)0x80004003)
#define KELMORA_CLASS_E_CLASSNOTAVAILABLE ((int32_t)0x80040111)

/* The four entry points of a self-registering component. */

/* KELMORA_S_OK while no object of the library is alive, else S_FALSE:
   alive is any handle not yet released, and any host object that the
   library still holds (the running-object table included). */
int32_t DllCanUnloadNow(void);
/* The class object of Main2 or of one of the four controls. `iid` is the
   class factory interface {00000001-0000-0000-C000-000000000046} or the
   base interface {00000000-0000-0000-C000-000000000046}. Model and
   TranslatorWrapper have no class object. */
int32_t DllGetClassObject(const kelmora_guid* clsid, const kelmora_guid* iid,
                          kelmora_object** factory);
/* Nothing needs writing on this platform: a host loads the library by its
   path and finds the classes by the identifiers compiled into it. Both
   answer KELMORA_S_OK. */
int32_t DllRegisterServer(void);
int32_t DllUnregisterServer(void);

/* Creates an object through a class object. */
int32_t kelmora_create_instance(kelmora_object* factory, kelmora_object** object,
                                kelmora_error* error);

/* Late binding into the library. Names compare without regard to case. */
int32_t kelmora_ids_of_names(kelmora_object* object, const char* name, int32_t* dispid,
                             kelmora_error* error);
/* `result` may be NULL; otherwise it is cleared and then receives the
   member's result. */
int32_t kelmora_invoke(kelmora_object* object, int32_t dispid, int32_t kind,
                       kelmora_variant* arguments, int32_t count, kelmora_variant* result,
                       kelmora_error* error);

uint32_t kelmora_add_ref(kelmora_object* object);
uint32_t kelmora_release(kelmora_object* object);

/* A host's object that answers by member name. `invoke` calls the member
   `name` with `kind` and `count` arguments, which it may change; it writes
   the member's result into *result (left empty when there is none) and
   returns 0, or a run-time error number after filling *error (with
   kelmora_error_set). A member the object lacks answers 438. `release`,
   which may be NULL, runs once when the library lets go of the object. A
   host that keeps an object passed to it as an argument takes a
   reference with kelmora_add_ref. */
typedef struct kelmora_host_vtable {
  int32_t (*invoke)(void* self, const char* name, int32_t kind, kelmora_variant* arguments,
                    int32_t count, kelmora_variant* result, kelmora_error* error);
  void (*release)(void* self);
} kelmora_host_vtable;

/* Wraps a host object; the vtable must outlive it. One reference. */
kelmora_object* kelmora_host_object(const kelmora_host_vtable* vtable, void* self);
/* The host's own pointer behind an object it wrapped, else NULL. */
void* kelmora_host_self(kelmora_object* object);

/* The process's table of running objects: the library attaches to the
   host's tracing bridge under "TessalyDot.BridgeToVB" there. */
int32_t kelmora_register_running_object(const char* class_name, kelmora_object* object,
                                        kelmora_error* error);
int32_t kelmora_revoke_running_object(const char* class_name, kelmora_error* error);

/* The host form's side of a control: placing a control made by a class
   object on the form under a name, shown; and taking it off, which ends
   it. */
int32_t kelmora_control_site(kelmora_object* control, const char* name, kelmora_error* error);
int32_t kelmora_control_close(kelmora_object* control, kelmora_error* error);

/* What a user does: give a widget the focus, type UTF-8 text into a text
   box character by character (each keystroke adds one whole character;
   a byte that starts no valid UTF-8 sequence is typed alone), move the
   focus out of the library's forms. */
int32_t kelmora_user_focus(kelmora_object* widget, kelmora_error* error);
int32_t kelmora_user_type(kelmora_object* widget, const char* text, kelmora_error* error);
int32_t kelmora_user_focus_away(kelmora_error* error);
/* Select all and delete in a text box: one change, if there was text. */
int32_t kelmora_user_clear(kelmora_object* text_box, kelmora_error* error);
/* Pick an entry of a combo box by its index, or by its exact text (no
   such entry fails with 380). */
int32_t kelmora_user_select_index(kelmora_object* combo_box, int16_t index, kelmora_error* error);
int32_t kelmora_user_select_text(kelmora_object* combo_box, const char* text,
                                 kelmora_error* error);
/* Click an option button (it becomes the chosen one) or a check box (it
   toggles; the third state becomes unchecked). Any other widget fails
   with 13. */
int32_t kelmora_user_click(kelmora_object* widget, kelmora_error* error);
/* Click a check box until it shows `value`, 0 unchecked or 1 checked, so
   nothing changes when it already does. A user cannot reach the third
   state: 2 fails with 380. */
int32_t kelmora_user_check(kelmora_object* check_box, int16_t value, kelmora_error* error);
/* The pointer rests on the middle of a widget; whatever lies on top there
   and is enabled receives the move. */
int32_t kelmora_user_mouse_move(kelmora_object* widget, kelmora_error* error);
/* Drop the host's drag data (an object answering GetFormat, GetData,
   SetData and Clear) on a widget. `left` (may be NULL) receives one
   reference to the data as the handlers left it. */
int32_t kelmora_user_drop(kelmora_object* widget, kelmora_object* data, kelmora_object** left,
                          kelmora_error* error);

/* Message boxes of the calling thread. The library shows a message box
   (a text with an OK button, no title) without waiting for anybody: each
   one goes to `show` with `context` and the UTF-8 text. NULL puts back the
   default, which writes the text and a line end to standard error. */
typedef void (*kelmora_message_box)(void* context, const char* text);
int32_t kelmora_set_message_box(kelmora_message_box show, void* context, kelmora_error* error);

/* The type library, read rather than copied: *out (cleared first)
   receives nested arrays of variants, every name and identifier a string,
   every number a 32-bit integer.

     out          [name, identifier, major version, minor version,
                   classes, interfaces, toolkit interfaces]
     a class      [name, class identifier, kind, default interface name]
     an interface [name, interface identifier, members]
     a member     [name, dispatch id, invoke kind, arguments, result type]
     an argument  [name, type, optional (boolean), default]

   Identifiers read "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}". A class's kind
   is one of KELMORA_CLASS_*. The invoke kind is KELMORA_METHOD,
   KELMORA_PROPERTY_GET or KELMORA_PROPERTY_PUT; a property that can be
   read and written has one member of each kind under one dispatch id. A
   type is one of "Integer", "Long", "Boolean", "String", "Variant",
   "Object", "String()", "Integer()", "Dictionary", "DataObject", "Model",
   or "" for a member without a result. The default of a required argument
   is empty; of an optional one, what it takes when omitted (Nothing is an
   object variant holding NULL). The toolkit interfaces (Widget, Controls,
   ControlWrapper, Dictionary) are no part of the type library and have
   the identifier "": they are the members a form's widgets, a widget
   collection, a control wrapper and a model's key map answer. */
enum { KELMORA_CLASS_CREATABLE = 0, KELMORA_CLASS_CONTROL = 1, KELMORA_CLASS_NOT_CREATABLE = 2 };
int32_t kelmora_type_info(kelmora_variant* out, kelmora_error* error);
/* The names of the interfaces a library object answers through, its own
   first, as an array of strings in *out (cleared first); a name found
   first in an earlier interface is the one called. */
int32_t kelmora_interfaces_of(kelmora_object* object, kelmora_variant* out, kelmora_error* error);

/* Why each widget of a frame stands as it does: shown or hidden, enabled
   or disabled, captioned so. `container` is a frame container (13
   otherwise); `which_type` names its frame, -1 the one shown. *out (cleared
   first) receives an array with one row per widget of the frame, in the
   order of its registry, none when the frame has not been made:

     a row  [widget name, class, field key, overall index, caption,
             shown (boolean), enabled (boolean), source,
             enable key, dependent widgets, hides (boolean), format family,
             earlier format (boolean), trigger, condition, value read,
             condition held (boolean), command, caption when enabled,
             caption when disabled, applied (boolean), because]

   The source is "frame" when no rule row has acted on the widget (the
   parts from the enable key to applied are then empty, false or -1),
   "rule" when the last row that acted on it decided its state, and
   "rule, then frame" when the frame's own code has changed it since. The
   command is "show", "disable", "hide" or "recaption"; "because" says the
   whole in plain words. Reading changes nothing and calls no host. */
int32_t kelmora_explain(kelmora_object* container, int16_t which_type, kelmora_variant* out,
                        kelmora_error* error);

/* CSL-JSON, the exchange format of reference managers, to and from a
   record by the host kit's mapping. `main` is a Main2 (13 otherwise).

   kelmora_csl_read takes one CSL item as JSON text and answers, as a
   string in *out (cleared first), the record's JSON:
     {"whichType": 1, "values": {field key: text, ...}, "extras": {...},
      "option": n}
   with the option that UpdateFrame selects (-1 for an e-source) and, in
   "extras", what the form has no field for. kelmora_csl_write takes such a
   record ("option" is not needed) and answers the CSL item as JSON text.
   Input that is no such JSON, an item of a type no form takes, or a
   variable the mapping cannot read fails with 5 and a description naming
   the item and the variable. */
int32_t kelmora_csl_read(kelmora_object* main, const char* item, kelmora_variant* out,
                         kelmora_error* error);
int32_t kelmora_csl_write(kelmora_object* main, const char* record, kelmora_variant* out,
                          kelmora_error* error);

/* Variants and errors. */
void kelmora_variant_init(kelmora_variant* variant);
void kelmora_variant_clear(kelmora_variant* variant);
void kelmora_variant_set_string(kelmora_variant* variant, const char* text);
/* An array of `count` empty variants. */
void kelmora_variant_set_array(kelmora_variant* variant, int32_t count);
/* Takes a new reference to the object. */
void kelmora_variant_set_object(kelmora_variant* variant, kelmora_object* object);
void kelmora_error_set(kelmora_error* error, int32_t number, const char* description);
void kelmora_error_clear(kelmora_error* error);

#ifdef __cplusplus
}
#endif

#endif /* KELMORA_H */
