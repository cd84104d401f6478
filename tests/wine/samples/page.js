// What the script of a page sees of its page, for the script host: elements, a clock, a user.
var elements = {}, handlers = {}, clock = null, onChoice, theControl;

function addElement(id) {
  elements[id] = { innerText: "", value: "", disabled: false, options: [] };
}
function addButton(words, handler) {
  handlers[words] = handler;
}
// The script host makes objects by their program name; the class must be the one of that name.
function makeControl(classId) {
  var shell = new ActiveXObject("WScript.Shell");
  var registered = shell.RegRead("HKCR\\Kelvane.KelvaneCtl\\CLSID\\");
  if (registered.toUpperCase() != "{" + classId.toUpperCase() + "}") {
    throw new Error("the page has the class " + classId + ", the control is " + registered);
  }
  theControl = new ActiveXObject("Kelvane.KelvaneCtl");
  elements.section.object = theControl;
}

var document = {
  getElementById: function (id) {
    if (!elements[id]) throw new Error("the page has no element " + id);
    return elements[id];
  }
};
var window = {
  setInterval: function (handler, milliseconds) {
    if (clock) throw new Error("two clocks at once");
    clock = { handler: handler };
    return clock;
  },
  clearInterval: function (id) {
    if (id !== clock) throw new Error("no such clock");
    clock = null;
  }
};
function Option(text) {
  this.text = text;
}

function press(words) {
  eval(handlers[words]);
}
function choose(words) {
  var items = elements.items;
  for (var i = 0; i < items.options.length; ++i) {
    if (items.options[i].text == words) items.selectedIndex = i;
  }
  new Function(onChoice).call(items);
}
function tick() {
  clock.handler();
}
function tell(what) {
  var items = [];
  for (var i = 0; i < elements.items.options.length; ++i) items.push(elements.items.options[i].text);
  WScript.Echo(what + ": [" + elements.message.innerText + "] items: " + items.join(" ") +
               ", key " + theControl.UseColorKey + ", ticking " + (clock !== null) +
               ", may step " + !elements.next.disabled);
}
