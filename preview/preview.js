// SPDX-License-Identifier: MIT
// The tree of the preview, and the page of the node that was clicked. Texts become text nodes, never markup; only the
// pages themselves are markup, which the program made and escaped.
"use strict";

const tree = document.getElementById("tree");
const page = document.getElementById("page");
const statusLine = document.getElementById("status");
const tab = [...crypto.getRandomValues(new Uint32Array(4))].map((n) => n.toString(16)).join("");
const nodes = new WeakMap();  // what the program said of each item: {n, k, t, g, b}
const longestText = 300;
let flawed = new Set();  // nodes of the scheme with findings
const chunk = 200;  // items of a part of a long branch: see "far" in the style sheet
const turn = 1000;  // items that are made at once, so that the browser can answer keys in between

// --- what is remembered while the browser's tab is open ---

const remembered = { open: new Set(), selected: null };
try {
    const stored = JSON.parse(sessionStorage.getItem("tree"));
    remembered.open = new Set(stored.open);
    remembered.selected = stored.selected;
} catch {
    // Nothing was stored yet.
}
function remember() {
    try {
        sessionStorage.setItem("tree", JSON.stringify({ open: [...remembered.open], selected: remembered.selected }));
    } catch {
        // There is no room: then it is forgotten.
    }
}

// --- asking the program ---

class Refused extends Error {}
async function ask(path, body) {
    let answer;
    try {
        answer = await fetch(path, body && { method: "POST", body: JSON.stringify({ ...body, tab }) });
    } catch {
        throw new Refused("The preview has ended. Start pelmo-scheme preview again, and open its new address.");
    }
    const text = await answer.text();
    if (!answer.ok) throw new Refused(text.trim());
    return text;
}
function say(words) {
    if (statusLine.textContent !== words) statusLine.textContent = words;
}

// Lets the browser do what waits. A timer would wait for a second in a tab that is not seen.
function pause() {
    const { port1, port2 } = new MessageChannel();
    return new Promise((done) => {
        port1.onmessage = done;
        port2.postMessage(null);
    });
}

// --- the tree ---

const row = (item) => item.firstElementChild;
const group = (item) => (item.lastElementChild.role === "group" ? item.lastElementChild : null);
const isOpen = (item) => item.ariaExpanded === "true";
const isClosed = (item) => item.ariaExpanded === "false";
const itemAt = (element) => element.closest("[role=treeitem]");
const itemAbove = (item) => itemAt(item.parentElement);
const shortened = (text) => (text.length > longestText ? text.slice(0, longestText) + "\u2026" : text);
const isNode = (a, b) => a.n === b.n && a.k === b.k && a.t === b.t && a.g === b.g;

// Names an item by the keys on the way to it.
function pathOf(item) {
    const steps = [];
    for (let at = item; at; at = itemAbove(at)) steps.unshift(nodes.get(at).n + ":" + nodes.get(at).k);
    return JSON.stringify(steps);
}

function element(tag, attributes, ...content) {
    const made = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) made.setAttribute(name, value);
    made.append(...content);
    return made;
}

function makeItem(node, level, place, count) {
    const text = shortened(node.t) || "\u00A0";
    const item = element("li", { role: "treeitem", tabindex: -1, "aria-label": text, "aria-level": level,
        "aria-setsize": count, "aria-posinset": place, "aria-selected": false },
        element("span", { class: "row" }, element("span", { class: "sign" }), element("span", { class: "text" }, text)));
    if (node.b) item.ariaExpanded = "false";
    nodes.set(item, node);
    mark(item);
    return item;
}

function mark(item) {
    const isFlawed = flawed.has(nodes.get(item).n);
    item.classList.toggle("flawed", isFlawed);
    if (isFlawed) item.setAttribute("aria-description", "with findings");
    else item.removeAttribute("aria-description");
}

// Fills a group chunk by chunk. What is far from view costs no layout: see "far" in the style sheet.
async function fill(list, found, level) {
    for (let first = 0; first < found.nodes.length; first += chunk) {
        if (first === chunk || (first > 0 && first % turn === 0)) await pause();
        const isLong = found.nodes.length > chunk;
        const part = isLong ? element("div", { role: "none", class: "far" }) : list;
        found.nodes.slice(first, first + chunk).forEach((node, at) =>
            part.append(makeItem(node, level, first + at + 1, found.total)));
        if (isLong) list.append(part);
    }
    const more = found.total - found.nodes.length;
    if (found.error) list.append(element("li", { role: "none", class: "more failed" }, found.error));
    else if (more > 0) list.append(element("li", { role: "none", class: "more" }, more + " more are not shown"));
    else if (!found.nodes.length) list.append(element("li", { role: "none", class: "more" }, "nothing below"));
    return found.error || found.nodes.length + (more > 0 ? " of " + found.total : "") + " below";
}

async function open(item) {
    if (!isClosed(item) || item.ariaBusy === "true") return;
    item.ariaBusy = "true";
    try {
        const found = JSON.parse(await ask("branch", nodes.get(item)));
        const list = element("ul", { role: "group" });
        item.append(list);
        item.ariaExpanded = "true";
        remembered.open.add(pathOf(item));
        remember();
        const words = await fill(list, found, Number(item.ariaLevel) + 1);
        say(shortened(nodes.get(item).t) + ": " + words);
    } catch (error) {
        if (!(error instanceof Refused)) throw error;
        say(error.message);
    } finally {
        item.ariaBusy = "false";
    }
}

function close(item) {
    if (!isOpen(item)) return;
    if (group(item).contains(document.activeElement)) focusOn(item);
    group(item).remove();
    item.ariaExpanded = "false";
    remembered.open.delete(pathOf(item));
    remember();
}

// Opens again what was open, from the top down.
async function reopen(item) {
    if (!remembered.open.has(pathOf(item))) return;
    await open(item);
    for (const below of item.querySelectorAll(":scope > ul > li, :scope > ul > div > li"))
        if (nodes.has(below)) await reopen(below);
}

function focusOn(item) {
    tree.querySelector("[role=treeitem][tabindex='0']")?.setAttribute("tabindex", -1);
    item.tabIndex = 0;
    item.focus({ preventScroll: true });
    row(item).scrollIntoView({ block: "nearest" });
}

async function show(item) {
    for (const other of tree.querySelectorAll("[aria-selected=true]")) other.ariaSelected = "false";
    item.ariaSelected = "true";
    remembered.selected = { path: pathOf(item), node: nodes.get(item) };
    remember();
    await showPage(nodes.get(item), true);
    // Somebody may have corrected the query since.
    if (flawed.has(nodes.get(item).n)) await lookUpFindings("findings/anew");
}

let lastAsked = 0;
async function showPage(node, isNew) {
    const asked = ++lastAsked;
    let html;
    try {
        html = await ask("page", node);
    } catch (error) {
        if (error instanceof Refused) say(error.message);
        else throw error;
        return;
    }
    if (asked !== lastAsked) return;  // another node was clicked meanwhile
    const openDetails = isNew ? [] : [...page.querySelectorAll("section:has(details[open])")].map((s) => s.id);
    page.innerHTML = html;
    for (const id of openDetails) document.getElementById(id)?.querySelector("details")?.setAttribute("open", "");
    document.title = shortened(node.t) + " \u2013 preview";
    if (!isNew) return;
    page.scrollTop = 0;
    say("Page: " + shortened(node.t));
}

// --- keys, as in the tree pattern of ARIA ---

// The nearest item before or after an element, or inside its part of the list.
const firstIn = (list) => list?.querySelector("[role=treeitem]") ?? null;
function sibling(item, step) {
    for (let at = item; at && at.role !== "group" && at !== tree; at = at.parentElement) {
        for (let next = at[step]; next; next = next[step]) {
            if (nodes.has(next)) return next;
            const items = next.querySelectorAll(":scope > [role=treeitem]");
            if (items.length) return step === "nextElementSibling" ? items[0] : items[items.length - 1];
        }
        if (at.parentElement.role !== "none") break;
    }
    return null;
}
function lastIn(item) {
    while (isOpen(item)) {
        const items = group(item).querySelectorAll(":scope > [role=treeitem], :scope > div > [role=treeitem]");
        if (!items.length) break;
        item = items[items.length - 1];
    }
    return item;
}
function following(item) {
    const below = isOpen(item) && firstIn(group(item));
    if (below) return below;
    for (let at = item; at; at = itemAbove(at)) {
        const next = sibling(at, "nextElementSibling");
        if (next) return next;
    }
    return null;
}
function preceding(item) {
    const before = sibling(item, "previousElementSibling");
    return before ? lastIn(before) : itemAbove(item);
}

let typed = "";
let typedAt = 0;
function find(item, letter) {
    const now = Date.now();
    typed = now - typedAt > 600 ? letter : typed + letter;
    typedAt = now;
    const wanted = typed.toLowerCase();
    const matches = (at) => nodes.get(at).t.toLowerCase().startsWith(wanted);
    if (typed.length > 1 && matches(item)) return item;
    for (let at = following(item) ?? firstIn(tree); at !== item; at = following(at) ?? firstIn(tree))
        if (matches(at)) return at;
    return null;
}

const keys = {
    ArrowDown: (item) => following(item),
    ArrowUp: (item) => preceding(item),
    ArrowRight: (item) => (isOpen(item) ? firstIn(group(item)) : void open(item)),
    ArrowLeft: (item) => (isOpen(item) ? void close(item) : itemAbove(item)),
    Home: () => firstIn(tree),
    End: () => lastIn(firstIn(tree)),
    Enter: (item) => void choose(item),
    " ": (item) => void choose(item),
    "*": async (item) => {
        for (let at = item; at; at = sibling(at, "nextElementSibling")) await open(at);
    },
};

// What could not be opened is tried again: somebody may have corrected the query since.
async function choose(item) {
    if (isOpen(item) && group(item).querySelector(":scope > .failed")) close(item);
    await Promise.all([show(item), open(item)]);
}

tree.addEventListener("keydown", (event) => {
    const item = itemAt(event.target);
    if (!item || event.ctrlKey || event.altKey || event.metaKey) return;
    const isLetter = event.key.length === 1 && event.key !== " " && event.key !== "*";
    const answer = isLetter ? find : keys[event.key];
    if (!answer) return;
    event.preventDefault();
    const next = answer(item, event.key);
    if (next instanceof Element) focusOn(next);
});

tree.addEventListener("click", (event) => {
    const item = event.target.closest(".row") && itemAt(event.target);
    if (!item) return;
    focusOn(item);
    if (event.target.className !== "sign") choose(item);
    else if (isOpen(item)) close(item);
    else open(item);
});

// --- the beginning, and again whenever a file is saved ---

async function build(root) {
    const hadFocus = tree.contains(document.activeElement);
    const focused = hadFocus ? pathOf(itemAt(document.activeElement)) : null;
    const scrolled = tree.parentElement.scrollTop;
    tree.replaceChildren(makeItem(root, 1, 1, 1));
    const first = firstIn(tree);
    remembered.open.add(pathOf(first));
    await reopen(first);
    const items = [...tree.querySelectorAll("[role=treeitem]")];
    const selected = items.find((item) => pathOf(item) === remembered.selected?.path);
    (selected ?? first).ariaSelected = "true";
    const next = items.find((item) => pathOf(item) === focused) ?? selected ?? first;
    next.tabIndex = 0;
    if (hadFocus) focusOn(next);
    tree.parentElement.scrollTop = scrolled;
    return selected ?? first;
}

let root = JSON.parse(tree.dataset.root);
let version = tree.dataset.version;

async function begin() {
    const selected = await build(root);
    say("");
    if (isNode(nodes.get(selected), root)) remembered.selected = null;
    else await showPage(nodes.get(selected), true);
    await lookUpFindings("findings");
}

// What does not fit in the queries is looked up when the first page is there: it takes longer.
let countOfFindings = 0;
async function lookUpFindings(address) {
    const found = JSON.parse(await ask(address));
    const before = countOfFindings;
    countOfFindings = found.count;
    flawed = new Set(found.nodes);
    if (found.count !== before) say(found.count + (found.count === 1 ? " finding" : " findings") + " in the queries");
    tree.querySelectorAll("[role=treeitem]").forEach(mark);
    const now = tree.querySelector("[aria-selected=true]");
    if ((found.count || before) && now) await showPage(nodes.get(now), false);
}

// Asks whether a file was saved, while somebody may be looking.
async function follow() {
    if (document.hidden) return;
    const now = await ask("version").catch((error) => say(error.message));
    if (!now || now === version) return;
    version = now;
    const frame = new DOMParser().parseFromString(await ask("./"), "text/html");
    root = JSON.parse(frame.getElementById("tree").dataset.root);
    const selected = await build(root);
    await showPage(nodes.get(selected), false);
    say("Read again: a file was saved.");
    await lookUpFindings("findings");
}
async function keepFollowing() {
    try {
        await follow();
    } catch (error) {
        if (!(error instanceof Refused)) throw error;
        say(error.message);
    } finally {
        setTimeout(keepFollowing, 1000);
    }
}

begin().catch((error) => say(error.message)).finally(keepFollowing);
