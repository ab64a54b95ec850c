// The shop of a site: a basket in cookies, the view of it, and orders. The pages call three functions:
//
//   artikelinwako(number, name, euro, dollar, quantity, language, basket page)            into the basket, and on to its page
//   artikelbestellen(number, name, euro, dollar, quantity, shop, language, currency)      orders this article alone
//   wakozeigen(shop, language, currency)                                                  shows the basket where it is called
//
// Languages are 'DEU' and 'ENG', currencies 'EUR' and 'USD'. Amounts are whole cents throughout. Names, cookies and what a
// customer types are only ever shown as text. Needs cookiefunctions.js.

// Values of the deployment: where orders go. "mailto:" and an address sends them by the customer's e-mail program, "https:" posts
// them as a form. The first is for all shops, the others for the shops with these numbers: {'1234': 'mailto:shop@moewe.example'}.
// A shop whose number is an e-mail address in quotes gets its orders there.
var mrdshopService = 'https://shopservice.mirandel.example/bestellung';
var mrdshopServices = {};

(function () {
  'use strict';

  var BASKET = 'mrdwako', ORDERED = 'mrdbestellt';
  var MOST_PIECES = 999, MOST_CENTS = 99999999, MOST_NUMBER = 999999999, LONGEST_NAME = 200;
  // Longer addresses are cut off by some e-mail programs.
  var LONGEST_MAIL = 1900;

  var TEXTS = {
    DEU: {
      tag: 'de', point: ',', group: '.',
      basket: 'Warenkorb', empty: 'Ihr Warenkorb ist leer.', article: 'Artikel ', each: 'je ', quantity: 'Menge',
      total: 'Summe: ',
      remove: 'Entfernen', removed: ' wurde entfernt. ', changed: 'Die Menge ist ge\u00e4ndert. ', onward: 'Weiter einkaufen',
      notStored: 'Die \u00c4nderung konnte nicht gespeichert werden.',
      otherwise: 'Ihr Warenkorb hat sich inzwischen ge\u00e4ndert. Bitte pr\u00fcfen Sie ihn, bevor Sie bestellen. ',
      wrongQuantity: 'Bitte geben Sie als Menge eine ganze Zahl von 1 bis 999 ein.',
      tooMany: 'Mehr als 999 St\u00fcck eines Artikels k\u00f6nnen nicht auf einmal bestellt werden.',
      full: 'Ihr Warenkorb ist voll. Der Artikel wurde nicht hineingelegt. Bitte schicken Sie zuerst diese Bestellung ab, ' +
        'und legen Sie den Artikel dann in einen neuen Warenkorb.',
      noCookies: 'Ihr Browser speichert keine Cookies f\u00fcr diese Seite. Ohne sie gibt es keinen Warenkorb. ' +
        'Bitte erlauben Sie Cookies, und versuchen Sie es noch einmal.',
      noArticle: 'Dieser Artikel kann zurzeit nicht bestellt werden.', added: 'Der Artikel liegt jetzt im Warenkorb.',
      noService: 'Dieser Shop nimmt zurzeit keine Bestellungen an.',
      yours: 'Ihre Bestellung', person: 'Ihre Angaben', name: 'Name', address: 'Anschrift', mail: 'E-Mail',
      remark: 'Bemerkung (freiwillig)',
      order: 'Zahlungs\u00adpflichtig bestellen', cancel: 'Abbrechen', orderTitle: 'Bestellung Shop ',
      missing: 'Bitte f\u00fcllen Sie dieses Feld aus: ', wrongMail: 'Bitte geben Sie eine vollst\u00e4ndige E-Mail-Adresse ein.',
      posted: 'Ihre Bestellung wird \u00fcbertragen.',
      mailed: 'Ihre Bestellung steht jetzt in Ihrem E-Mail-Programm. Bitte schicken Sie die E-Mail dort ab. Falls sich kein ' +
        'E-Mail-Programm ge\u00f6ffnet hat oder der Text fehlt, schicken Sie diesen Text bitte an ',
      mailText: 'Text der Bestellung', copy: 'Text kopieren', copied: 'Der Text ist kopiert.',
      paste: 'Bitte f\u00fcgen Sie hier den kopierten Text der Bestellung ein.',
      ordered: 'Diesen Warenkorb haben Sie schon zum Bestellen abgeschickt. Ist die Bestellung angekommen, k\u00f6nnen Sie ' +
        'ihn leeren.',
      clear: 'Warenkorb leeren', cleared: 'Der Warenkorb ist jetzt leer.'
    },
    ENG: {
      tag: 'en', point: '.', group: ',',
      basket: 'Basket', empty: 'Your basket is empty.', article: 'Item ', each: 'each ', quantity: 'Quantity',
      total: 'Total: ',
      remove: 'Remove', removed: ' has been removed. ', changed: 'The quantity has been changed. ', onward: 'Continue shopping',
      notStored: 'The change could not be stored.',
      otherwise: 'Your basket has changed meanwhile. Please check it before you order. ',
      wrongQuantity: 'Please enter a whole number from 1 to 999 as the quantity.',
      tooMany: 'No more than 999 pieces of an article can be ordered at once.',
      full: 'Your basket is full. The article has not been added. Please send this order first, then add the article to a new ' +
        'basket.',
      noCookies: 'Your browser does not store cookies for this page. There is no basket without them. Please allow cookies and ' +
        'try again.',
      noArticle: 'This article cannot be ordered at present.', added: 'The article is in the basket now.',
      noService: 'This shop does not take orders at present.',
      yours: 'Your order', person: 'Your details', name: 'Name', address: 'Address', mail: 'E-mail', remark: 'Remark (optional)',
      order: 'Order with obligation to pay', cancel: 'Cancel', orderTitle: 'Order for shop ',
      missing: 'Please fill in this field: ', wrongMail: 'Please enter a complete e-mail address.',
      posted: 'Your order is being sent.',
      mailed: 'Your order is in your e-mail program now. Please send the e-mail from there. If no e-mail program has opened, ' +
        'or the text is missing, please send this text to ',
      mailText: 'Text of the order', copy: 'Copy text', copied: 'The text has been copied.',
      paste: 'Please paste the copied text of the order here.',
      ordered: 'You have sent this basket as an order already. If the order has arrived, you can empty the basket.',
      clear: 'Empty basket', cleared: 'The basket is empty now.'
    }
  };

  // Lines wrap by the width of the column that the page gives the basket, which may be narrow on a wide screen too.
  var STYLE =
    '.mrdwako, .mrdwako p, .mrdwako div, .mrdwako li, .mrdwako label, .mrdwako input, .mrdwako textarea, .mrdwako button ' +
      '{ font-size: 16px; line-height: 1.4; box-sizing: border-box }' +
    '.mrdwako { max-width: 48em; text-align: left; overflow-wrap: anywhere }' +
    '.mrdwako-titel { margin: 12px 0 4px 0; font-weight: bold }' +
    '.mrdwako-titel:empty { display: none }' +
    '.mrdwako ul { list-style: none; margin: 0; padding: 0 }' +
    '.mrdwako li { display: flex; flex-wrap: wrap; align-items: center; gap: 4px 16px; padding: 10px 0; ' +
      'border-bottom: 1px solid }' +
    '.mrdwako-name { flex: 1 1 11em; font-weight: bold }' +
    '.mrdwako-nummer { display: block; font-weight: normal; font-size: 14px }' +
    '.mrdwako-preis { flex: 0 1 9.5em }' +
    '.mrdwako-betrag { flex: 1 1 7em; text-align: right; font-weight: bold; font-variant-numeric: tabular-nums }' +
    '.mrdwako-geld { display: inline-block }' +
    '.mrdwako-summe { text-align: right; font-weight: bold; margin: 10px 0 }' +
    '.mrdwako-meldung { margin: 8px 0; padding: 8px 12px; border: 2px solid; font-weight: bold }' +
    '.mrdwako-meldung:empty { margin: 0; padding: 0; border: 0 }' +
    '.mrdwako button { min-height: 40px; padding: 6px 14px; cursor: pointer }' +
    '.mrdwako input, .mrdwako textarea { min-height: 40px; padding: 6px 8px; font-family: inherit }' +
    '.mrdwako li input { width: 4em; text-align: right }' +
    '.mrdwako li button { margin: 0 }' +
    '.mrdwako fieldset { margin: 16px 0 0 0; padding: 8px 10px 14px 10px; border: 1px solid; min-width: 0 }' +
    '.mrdwako legend { font-size: 16px; font-weight: bold; padding: 0 6px }' +
    '.mrdwako-feld { display: block; margin: 8px 0 }' +
    '.mrdwako-feld input, .mrdwako-feld textarea, .mrdwako-text { display: block; width: 100% }' +
    '.mrdwako-knopf { margin: 10px 12px 0 0 }' +
    '.mrdwako a { text-decoration: underline }';

  // --- articles

  function textsOf(language) {
    return language === 'ENG' ? TEXTS.ENG : TEXTS.DEU;
  }

  // A whole number within bounds, 0 for anything else.
  function wholeNumber(text, most) {
    var digits = String(text).replace(/^\s+|\s+$/g, '');
    return /^[0-9]{1,9}$/.test(digits) && Number(digits) <= most ? Number(digits) : 0;
  }

  // Cents of a price as pages write it (12.50), -1 for what is none.
  function centsOf(price) {
    var cents = typeof price === 'number' ? Math.round(price * 100) : -1;
    return cents >= 0 && cents <= MOST_CENTS ? cents : -1;
  }

  // Pages carry characters that their encoding lacks as references, which mean nothing in a script.
  function withoutReferences(name) {
    return String(name).replace(/&#([0-9]{1,7});/g, function (all, code) {
      return Number(code) <= 0x10ffff ? String.fromCodePoint(Number(code)) : all;
    });
  }

  // On one line and of a bounded length.
  function plainName(name) {
    return name.replace(/[\u0000-\u001f\u007f-\u009f\s]+/g, ' ').replace(/^ | $/g, '').slice(0, LONGEST_NAME);
  }

  // An article that can be ordered, or null. Its quantity is not looked at yet.
  function articleOf(number, name, euro, dollar) {
    var article = { number: wholeNumber(number, MOST_NUMBER), name: plainName(name), euro: centsOf(euro), dollar: centsOf(dollar),
      quantity: 0 };
    return article.number > 0 && article.name !== '' && article.euro >= 0 && article.dollar >= 0 ? article : null;
  }

  function priceOf(line, currency) {
    return currency === 'USD' ? line.dollar : line.euro;
  }

  function totalOf(lines, currency) {
    return lines.reduce(function (sum, line) { return sum + line.quantity * priceOf(line, currency); }, 0);
  }

  function money(cents, currency, texts) {
    var digits = ('00' + cents).slice(-Math.max(3, String(cents).length));
    return digits.slice(0, -2).replace(/\B(?=([0-9]{3})+$)/g, texts.group) + texts.point + digits.slice(-2) + ' ' + currency;
  }

  // --- the basket: one line an article, "number TAB quantity TAB euro cents TAB dollar cents TAB name"

  function readBasket() {
    return cookieText(BASKET).split('\n').slice(0, -1).map(readLine).filter(Boolean);
  }

  // Null for what is no line of a basket. Cookies come from the customer's computer, where they can be anything.
  function readLine(text) {
    var fields = text.split('\t'), line;
    if (fields.length !== 5 || !/^[0-9]{1,9}(\t[0-9]{1,9}){3}\t/.test(text)) { return null; }
    line = articleOf(fields[0], fields[4], Number(fields[2]) / 100, Number(fields[3]) / 100);
    if (line) { line.quantity = wholeNumber(fields[1], MOST_PIECES); }
    return line && line.quantity > 0 ? line : null;
  }

  function writeBasket(lines) {
    var text = lines.map(function (line) {
      return [line.number, line.quantity, line.euro, line.dollar, line.name].join('\t') + '\n';
    }).join('');
    cookieRemove(ORDERED);
    return cookieStore(BASKET, text);
  }

  function lineOf(lines, number) {
    return lines.filter(function (line) { return line.number === number; })[0];
  }

  // Puts pieces of an article into the basket, whose name and prices are those of the page from now on. Answers with what is
  // wrong, empty when nothing is.
  function addToBasket(article, texts) {
    var lines = readBasket(), line = lineOf(lines, article.number);
    if (line) {
      article.quantity += line.quantity;
      if (article.quantity > MOST_PIECES) { return texts.tooMany; }
      lines[lines.indexOf(line)] = article;
    } else {
      lines.push(article);
    }
    if (writeBasket(lines)) { return ''; }
    return cookiesWork() ? texts.full : texts.noCookies;
  }

  // --- what pages call

  // The article with its quantity; null when the customer has been told what is wrong with it.
  function wanted(number, name, euro, dollar, quantity, texts) {
    var article = articleOf(number, withoutReferences(name), euro, dollar);
    if (!article) {
      window.alert(texts.noArticle);
      return null;
    }
    article.quantity = wholeNumber(quantity, MOST_PIECES);
    if (article.quantity === 0) {
      window.alert(texts.wrongQuantity);
      toQuantityField(article.number);
      return null;
    }
    return article;
  }

  function formOf(number) {
    return document.forms.namedItem('form' + number);
  }

  function toQuantityField(number) {
    var form = formOf(number), field = form && form.elements.namedItem('anzahl');
    if (field && field.select) {
      field.focus();
      field.select();
    }
  }

  window.artikelinwako = function (number, name, euro, dollar, quantity, language, page) {
    var texts = textsOf(language), article = wanted(number, name, euro, dollar, quantity, texts), problem;
    if (!article) { return; }
    problem = addToBasket(article, texts);
    if (problem !== '') {
      window.alert(problem);
    } else if (isPage(page)) {
      window.location.href = page;
    } else {
      window.alert(texts.added);
    }
  };

  window.artikelbestellen = function (number, name, euro, dollar, quantity, shop, language, currency) {
    var texts = textsOf(language), article = wanted(number, name, euro, dollar, quantity, texts), form, order, last;
    if (!article) { return; }
    form = formOf(article.number);
    last = document.getElementById('mrdwako-direkt');
    if (last) { last.parentNode.removeChild(last); }
    order = new Order(article, shop, texts, currency);
    order.frame.id = 'mrdwako-direkt';
    (form ? form.parentNode : document.body).insertBefore(order.frame, form ? form.nextSibling : null);
    order.show();
    order.heading.focus();
  };

  window.wakozeigen = function (shop, language, currency) {
    var place = document.currentScript, order = new Order(null, shop, textsOf(language), currency);
    (place ? place.parentNode : document.body).insertBefore(order.frame, place ? place.nextSibling : null);
    fitToTelephone();
    order.show();
    if (cookieText(ORDERED) !== '' && order.lines.length > 0) { order.tellOrdered(); }
    // The basket may have changed in another window, or before the customer came back.
    ['focus', 'pageshow'].forEach(function (event) {
      window.addEventListener(event, function () { order.showChanges(); }, false);
    });
  };

  // A page of a site; other addresses are none.
  function isPage(address) {
    var text = String(address).replace(/[\u0000-\u0020]+/g, '');
    return text !== '' && (!/^[a-z][a-z0-9+.\-]*:/i.test(text) || /^https?:/i.test(text));
  }

  // Return in the field for the quantity means the button beside it, and not a form that is sent nowhere.
  document.addEventListener('submit', function (event) {
    var form = event.target, button = form.elements.namedItem('mybutton');
    if (!/^form[0-9]+$/.test(form.getAttribute('name')) || !button) { return; }
    event.preventDefault();
    button.click();
  }, false);

  // --- elements

  // Texts become text and never markup. Attribute names are ours.
  function element(tag, attributes, children) {
    var made = document.createElement(tag);
    Object.keys(attributes || {}).forEach(function (name) { made.setAttribute(name, attributes[name]); });
    (children || []).forEach(function (child) {
      made.appendChild(typeof child === 'string' ? document.createTextNode(child) : child);
    });
    return made;
  }

  function button(text, name, onClick) {
    var made = element('button', { type: 'button', 'class': 'mrdwako-knopf', 'aria-label': name }, [text]);
    made.addEventListener('click', onClick, false);
    return made;
  }

  function clear(parent) {
    while (parent.firstChild) { parent.removeChild(parent.firstChild); }
  }

  function addStyle() {
    if (document.getElementById('mrdwako-stil')) { return; }
    (document.head || document.body).appendChild(element('style', { id: 'mrdwako-stil' }, [STYLE]));
  }

  // Pages that say nothing of their width are shown on telephones as on a wide screen, in tiny letters.
  function fitToTelephone() {
    if (document.getElementsByName('viewport').length > 0) { return; }
    document.head.appendChild(element('meta', { name: 'viewport', content: 'width=device-width' }));
  }

  // --- the view of the basket, or of the one article that is ordered directly, with the form that orders it

  // `article` is that of a direct order, null for the basket.
  function Order(article, shop, texts, currency) {
    this.article = article;
    this.shop = String(shop);
    this.texts = texts;
    this.currency = currency === 'USD' ? 'USD' : 'EUR';
    this.service = serviceOf(this.shop);
    this.lines = [];
    this.heading = element('p', { 'class': 'mrdwako-titel', tabindex: '-1' }, article ? [texts.yours] : []);
    this.status = element('p', { 'class': 'mrdwako-meldung', role: 'status', tabindex: '-1' });
    this.content = element('div');
    this.below = element('div');
    this.frame = element('section', { 'class': 'mrdwako', lang: texts.tag, 'aria-label': article ? texts.yours : texts.basket },
      [this.heading, this.status, this.content, this.below]);
    this.form = null;
    addStyle();
  }

  Order.prototype.say = function (text) {
    this.status.textContent = text;
  };

  // For messages about something that is gone from the page, so that the keyboard is not lost with it.
  Order.prototype.sayAndGoThere = function (text) {
    this.say(text);
    this.status.focus();
  };

  Order.prototype.show = function () {
    this.lines = this.article ? [this.article] : readBasket();
    clear(this.content);
    if (this.lines.length === 0) {
      this.content.appendChild(element('p', {}, [this.texts.empty]));
    } else {
      this.content.appendChild(element('ul', {}, this.lines.map(this.row, this)));
      this.total = element('p', { 'class': 'mrdwako-summe' });
      this.content.appendChild(this.total);
      this.showTotal();
    }
    this.showBelow();
  };

  Order.prototype.showTotal = function () {
    clear(this.total);
    this.total.appendChild(document.createTextNode(this.texts.total));
    this.total.appendChild(element('span', { 'class': 'mrdwako-geld' }, [this.totalMoney()]));
  };

  Order.prototype.totalMoney = function () {
    return money(totalOf(this.lines, this.currency), this.currency, this.texts);
  };

  Order.prototype.totalText = function () {
    return this.texts.total + this.totalMoney();
  };

  // Whether the basket was another one than that on the page; the page shows it now.
  Order.prototype.showChanges = function () {
    var isOther = JSON.stringify(readBasket()) !== JSON.stringify(this.lines);
    if (isOther) { this.show(); }
    return isOther;
  };

  Order.prototype.row = function (line) {
    var order = this, texts = this.texts;
    var field = element('input', { type: 'text', inputmode: 'numeric', maxlength: '3', autocomplete: 'off', value: line.quantity,
      'aria-label': texts.quantity + ': ' + line.name });
    var amount = element('span', { 'class': 'mrdwako-betrag' });
    function showAmount() {
      amount.textContent = money(line.quantity * priceOf(line, order.currency), order.currency, texts);
    }
    field.addEventListener('change', function () {
      order.change(line, field.value);
      field.value = line.quantity;
      showAmount();
    }, false);
    showAmount();
    return element('li', {}, [
      element('span', { 'class': 'mrdwako-name' },
        [line.name, element('span', { 'class': 'mrdwako-nummer' }, [texts.article + line.number])]),
      element('span', { 'class': 'mrdwako-preis' }, [texts.each + money(priceOf(line, this.currency), this.currency, texts)]),
      element('label', {}, [texts.quantity + ' ', field]),
      amount
    ].concat(this.article ? [] : button(texts.remove, texts.remove + ': ' + line.name, function () { order.remove(line); })));
  };

  Order.prototype.change = function (line, text) {
    var quantity = wholeNumber(text, MOST_PIECES), before = line.quantity;
    if (quantity === 0) { return this.say(this.texts.wrongQuantity); }
    line.quantity = quantity;
    if (!this.article && !this.store()) {
      line.quantity = before;
      return this.say(this.texts.notStored);
    }
    this.showTotal();
    this.say(this.texts.changed + this.totalText());
  };

  // Writes what the customer sees into the basket. Lines that came in from another window stay.
  Order.prototype.store = function () {
    var shown = this.lines;
    var others = readBasket().filter(function (line) { return !lineOf(shown, line.number); });
    return writeBasket(shown.concat(others));
  };

  Order.prototype.remove = function (line) {
    var stored = writeBasket(readBasket().filter(function (other) { return other.number !== line.number; }));
    this.show();
    this.sayAndGoThere(stored ? line.name + this.texts.removed + (this.lines.length > 0 ? this.totalText() : this.texts.empty)
      : this.texts.notStored);
  };

  Order.prototype.tellOrdered = function () {
    var order = this;
    this.say(this.texts.ordered);
    this.content.appendChild(button(this.texts.clear, this.texts.clear, function () { order.empty(); }));
  };

  Order.prototype.empty = function () {
    writeBasket([]);
    this.show();
    this.sayAndGoThere(this.texts.cleared);
  };

  // Ends a direct order.
  Order.prototype.close = function () {
    var form = formOf(this.article.number), back = form && form.elements.namedItem('mybutton');
    this.frame.parentNode.removeChild(this.frame);
    if (back && back.focus) { back.focus(); }
  };

  // The form stays as the customer has filled it in when only the lines change.
  Order.prototype.showBelow = function () {
    var orders = this.lines.length > 0 && this.service !== '';
    if (this.form && orders) { return; }
    clear(this.below);
    this.form = orders ? this.orderForm() : null;
    if (this.form) { this.below.appendChild(this.form); }
    if (this.lines.length > 0 && !orders) { this.below.appendChild(element('p', {}, [this.texts.noService])); }
    this.showWayOn();
  };

  Order.prototype.showWayOn = function () {
    var order = this, from = document.referrer, site = window.location.protocol + '//' + window.location.host + '/';
    if (this.article) {
      this.below.appendChild(button(this.texts.cancel, this.texts.cancel, function () { order.close(); }));
    } else if (from.indexOf(site) === 0 && from.split('#')[0] !== window.location.href.split('#')[0]) {
      this.below.appendChild(element('p', {}, [element('a', { href: from }, [this.texts.onward])]));
    }
  };

  // --- the customer's form

  var FIELDS = [
    { key: 'name', tag: 'input', needed: true, attributes: { type: 'text', autocomplete: 'name' } },
    { key: 'address', tag: 'textarea', needed: true, attributes: { rows: '3', autocomplete: 'street-address' } },
    { key: 'mail', tag: 'input', needed: true, attributes: { type: 'email', autocomplete: 'email' } },
    { key: 'remark', tag: 'textarea', needed: false, attributes: { rows: '2' } }
  ];

  Order.prototype.orderForm = function () {
    var order = this, texts = this.texts, fields = {};
    var labels = FIELDS.map(function (field) {
      fields[field.key] = element(field.tag, field.attributes);
      fields[field.key].setAttribute('maxlength', '500');
      if (field.needed) { fields[field.key].setAttribute('aria-required', 'true'); }
      return element('label', { 'class': 'mrdwako-feld' }, [texts[field.key], fields[field.key]]);
    });
    var send = element('button', { type: 'submit', 'class': 'mrdwako-knopf' }, [texts.order]);
    var form = element('form', { novalidate: '' },
      [element('fieldset', {}, [element('legend', {}, [texts.person])].concat(labels, [send]))]);
    form.addEventListener('submit', function (event) {
      event.preventDefault();
      order.submit(fields);
    }, false);
    return form;
  };

  Order.prototype.submit = function (fields) {
    var customer = this.customerOf(fields);
    if (!customer) { return; }
    if (!this.article) {
      // What is ordered is what the customer has seen.
      if (this.showChanges()) { return this.sayAndGoThere(this.texts.otherwise); }
      cookieStore(ORDERED, 'ja');
    }
    if (/^mailto:/i.test(this.service)) {
      this.sendByMail(customer);
    } else {
      this.say(this.texts.posted);
      this.post(customer);
    }
  };

  // What the customer typed; null when something is missing, which has then been said.
  Order.prototype.customerOf = function (fields) {
    var customer = {}, order = this;
    var wrong = FIELDS.filter(function (field) {
      var value = fields[field.key].value.replace(/^\s+|\s+$/g, '');
      var isWrong = (field.needed && value === '') || (field.key === 'mail' && !isMailAddress(value));
      customer[field.key] = value;
      fields[field.key].setAttribute('aria-invalid', String(isWrong));
      return isWrong;
    })[0];
    if (!wrong) { return customer; }
    order.say(customer[wrong.key] === '' ? order.texts.missing + order.texts[wrong.key] : order.texts.wrongMail);
    fields[wrong.key].focus();
    return null;
  };

  function isMailAddress(text) {
    return /^[^\s@<>()",;:\\\/?&=%#]+@[^\s@<>()",;:\\\/?&=%#]+\.[^\s@<>()",;:\\\/?&=%#.]+$/.test(text);
  }

  // --- orders on their way

  // Where the orders of a shop go; empty for a shop that cannot take any.
  function serviceOf(shop) {
    var service = '';
    if (isMailAddress(shop)) {
      service = 'mailto:' + shop;
    } else if (/^[A-Za-z0-9_.\-]{1,40}$/.test(shop)) {
      service = Object.prototype.hasOwnProperty.call(mrdshopServices, shop) ? mrdshopServices[shop] : mrdshopService;
    }
    return /^(https?:\/\/|mailto:)./i.test(service) ? service : '';
  }

  function decimal(cents) {
    return money(cents, '', { point: '.', group: '' }).slice(0, -1);
  }

  // What the service gets, in UTF-8: shopid, sprache, waehrung and the number of positionen; of each line, numbered from 1,
  // artikelnummer_1, artikel_1, anzahl_1, preis_1 and betrag_1; then summe, name, anschrift, email and bemerkung. Amounts have
  // two decimals behind a point.
  Order.prototype.postedFields = function (customer) {
    var currency = this.currency, total = totalOf(this.lines, currency);
    var fields = [['shopid', this.shop], ['sprache', this.texts === TEXTS.ENG ? 'ENG' : 'DEU'], ['waehrung', currency],
      ['positionen', this.lines.length]];
    this.lines.forEach(function (line, i) {
      var price = priceOf(line, currency), place = '_' + (i + 1);
      fields.push(['artikelnummer' + place, line.number], ['artikel' + place, line.name], ['anzahl' + place, line.quantity],
        ['preis' + place, decimal(price)], ['betrag' + place, decimal(price * line.quantity)]);
    });
    return fields.concat([['summe', decimal(total)], ['name', customer.name], ['anschrift', customer.address],
      ['email', customer.mail], ['bemerkung', customer.remark]]);
  };

  Order.prototype.post = function (customer) {
    var form = element('form', { method: 'post', action: this.service, 'accept-charset': 'utf-8', hidden: '' },
      this.postedFields(customer).map(function (field) {
        return element('textarea', { name: field[0] }, [String(field[1])]);
      }));
    document.body.appendChild(form);
    form.submit();
    document.body.removeChild(form);
  };

  Order.prototype.mailText = function (customer) {
    var order = this, texts = this.texts;
    var lines = this.lines.map(function (line) {
      var price = priceOf(line, order.currency);
      return line.quantity + ' x ' + line.name + ' (' + texts.article + line.number + '), ' + texts.each +
        money(price, order.currency, texts) + ' = ' + money(price * line.quantity, order.currency, texts);
    });
    return [texts.orderTitle + this.shop, ''].concat(lines, [this.totalText(), '', texts.name + ': ' + customer.name,
      texts.address + ':', customer.address, texts.mail + ': ' + customer.mail, texts.remark + ':', customer.remark])
      .join('\n').replace(/\r?\n/g, '\r\n') + '\r\n';
  };

  Order.prototype.sendByMail = function (customer) {
    var text = this.mailText(customer), target = this.service.split('?')[0];
    var address = target + '?subject=' + encodeURIComponent(this.texts.orderTitle + this.shop) + '&body=';
    var whole = address + encodeURIComponent(text);
    this.showMailText(text, target.replace(/^mailto:/i, ''));
    window.location.href = whole.length <= LONGEST_MAIL ? whole : address + encodeURIComponent(this.texts.paste);
  };

  Order.prototype.showMailText = function (text, receiver) {
    var order = this, texts = this.texts;
    var area = element('textarea', { 'class': 'mrdwako-text', rows: '10', readonly: '', 'aria-label': texts.mailText }, [text]);
    var last = this.below.querySelector('.mrdwako-abgeschickt');
    var box = element('div', { 'class': 'mrdwako-abgeschickt' }, [area, button(texts.copy, texts.copy, function () {
      area.focus();
      area.select();
      if (document.execCommand('copy')) { order.say(texts.copied); }
    })]);
    if (!this.article) { box.appendChild(button(texts.clear, texts.clear, function () { order.empty(); })); }
    if (last) { last.parentNode.removeChild(last); }
    this.below.appendChild(box);
    this.sayAndGoThere(texts.mailed + receiver + '.');
  };
})();
