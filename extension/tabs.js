// SPDX-License-Identifier: Apache-2.0
export const api = globalThis.browser ?? globalThis.chrome;

// What is longer is cut, here and in every comparison: some pages are their own address.
const longestTitle = 1024;
const longestUrl = 4096;

function plain(text, longest) {
    // eslint-disable-next-line no-control-regex -- the agent's lines are parted by such characters
    return (text ?? "").replace(/[\u0000-\u001f\u007f]/g, " ").slice(0, longest);
}

const titleOf = (tab) => plain(tab.title, longestTitle);
const urlOf = (tab) => plain(tab.url || tab.pendingUrl, longestUrl);

// The tabs of this profile's ordinary windows. Windows and tabs are numbered from 1 in the order of
// the last listing; behind each number stands the tab that had it, so that a tab that has moved
// since is still the one that was meant.
export class Tabs {
    #recent = []; // window ids, the last one in front first
    #focusedAt = 0;
    #places = [];

    noteFocus(windowId) {
        if (windowId === api.windows.WINDOW_ID_NONE) return;
        this.#recent = [windowId, ...this.#recent.filter((known) => known !== windowId)];
        this.#focusedAt = Date.now();
    }

    async carryOut(request) {
        switch (request.do) {
            case "enumerate":
                return this.#list();
            case "activate": {
                const tab = await this.#at(request);
                return tab ? this.#select(tab) : { error: "There is no such tab any more." };
            }
            case "relocate": {
                const tab = await this.#find(request);
                return tab ? this.#select(tab) : { found: false };
            }
            default:
                return { error: "unknown request" };
        }
    }

    async #windows() {
        const windows = await api.windows.getAll({ populate: true, windowTypes: ["normal"] });
        const open = new Set(windows.map((window) => window.id));
        this.#recent = this.#recent.filter((id) => open.has(id));
        const focused = windows.find((window) => window.focused);
        if (focused && this.#recent[0] !== focused.id) this.noteFocus(focused.id);
        const age = (window) => {
            const place = this.#recent.indexOf(window.id);
            return place < 0 ? this.#recent.length : place;
        };
        return windows.sort((a, b) => age(a) - age(b));
    }

    async #list() {
        const windows = await this.#windows();
        this.#places = windows.map((window) =>
            window.tabs.map((tab) => ({ id: tab.id, title: titleOf(tab), url: urlOf(tab) })),
        );
        return {
            focusedAt: this.#focusedAt,
            windows: windows.map((window) =>
                window.tabs.map((tab) => [titleOf(tab), tab.active ? 1 : 0, urlOf(tab)]),
            ),
        };
    }

    async #remembered({ window, tab }) {
        if (this.#places.length === 0) await this.#list();
        return this.#places[window - 1]?.[tab - 1];
    }

    // The tab with this number. It may show something else by now: then a tab that shows what this
    // one did goes before it.
    async #at(place) {
        const meant = await this.#remembered(place);
        if (!meant) return undefined;
        const found = await this.#find({ ...place, url: meant.url, title: meant.title });
        return found ?? api.tabs.get(meant.id).catch(() => undefined);
    }

    async #find({ window, tab, url, title }) {
        const wantedUrl = plain(url, longestUrl);
        const wantedTitle = plain(title, longestTitle);
        const meant = await this.#remembered({ window, tab });
        const all = (await this.#windows()).flatMap((open) => open.tabs);
        const same = all.find((candidate) => candidate.id === meant?.id);
        // By address, then by title; the tab of the listing goes before others that fit as well.
        const candidates = same ? [same, ...all] : all;
        return (
            candidates.find((found) => wantedUrl !== "" && urlOf(found) === wantedUrl) ??
            candidates.find((found) => wantedTitle !== "" && titleOf(found) === wantedTitle)
        );
    }

    async #select(tab) {
        await api.tabs.update(tab.id, { active: true });
        const before = await api.windows.get(tab.windowId);
        const shown = before.state === "minimized" ? { state: "normal" } : {};
        const window = await api.windows.update(tab.windowId, { ...shown, focused: true });
        this.noteFocus(tab.windowId);
        const frame = [window.left, window.top, window.width, window.height];
        return { found: true, title: titleOf(tab), frame };
    }
}
