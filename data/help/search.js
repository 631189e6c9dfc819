// Finds the help pages that hold every word typed, best matches first
// (a word in the title counts most, then in the keywords, then in the text).
(function () {
  var input = document.getElementById("query");
  var list = document.getElementById("hits");
  function score(page, words) {
    var total = 0;
    var title = page.title.toLowerCase(), keys = page.keywords.toLowerCase(), text = page.text.toLowerCase();
    for (var i = 0; i < words.length; i++) {
      var w = words[i], s = 0;
      if (title.indexOf(w) >= 0) s += 10;
      if (keys.indexOf(w) >= 0) s += 5;
      if (text.indexOf(w) >= 0) s += 1;
      if (s === 0) return 0;
      total += s;
    }
    return total;
  }
  function excerpt(text, word) {
    var at = text.toLowerCase().indexOf(word);
    if (at < 0) return text.slice(0, 140) + "…";
    var from = Math.max(0, at - 60);
    return (from > 0 ? "…" : "") + text.slice(from, at + 80) + "…";
  }
  function run() {
    var words = input.value.toLowerCase().split(/\s+/).filter(function (w) { return w.length > 0; });
    list.innerHTML = "";
    if (words.length === 0) return;
    var hits = HELP_PAGES.map(function (p) { return { page: p, score: score(p, words) }; })
      .filter(function (h) { return h.score > 0; })
      .sort(function (a, b) { return b.score - a.score; });
    if (hits.length === 0) {
      var none = document.createElement("li");
      none.textContent = "No page holds all of these words.";
      list.appendChild(none);
    }
    hits.forEach(function (h) {
      var item = document.createElement("li");
      var link = document.createElement("a");
      link.href = h.page.page;
      link.textContent = h.page.title;
      item.appendChild(link);
      var p = document.createElement("div");
      p.className = "excerpt";
      p.textContent = excerpt(h.page.text, words[0]);
      item.appendChild(p);
      list.appendChild(item);
    });
  }
  input.addEventListener("input", run);
  var q = new URLSearchParams(window.location.search).get("q");
  if (q) { input.value = q; }
  run();
})();
