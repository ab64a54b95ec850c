// Keeps a text in the visitor's browser, in cookies of the site's directory: what one page stores, the others read.
//
// Browsers take about 4000 bytes in one cookie, and web servers about 8000 in all cookies together. So a text is laid into as
// many cookies as it needs (name0, name1, ...), and one that does not fit is refused as a whole.

var cookiePartLength = 3000;
var cookieParts = 2;
// A basket that its owner comes back to within this time is still there.
var cookieDays = 7;

// Stores the text. False when it is too long or the browser keeps no cookies; what was stored before stays then.
function cookieStore(name, text) {
  var code = cookieEncoded(text), before = cookieCode(name);
  if (code.length > cookiePartLength * cookieParts) { return false; }
  cookieWrite(name, code);
  if (cookieCode(name) === code) { return true; }
  cookieWrite(name, before);
  return false;
}

// The text stored last; empty when there is none.
function cookieText(name) {
  return cookieDecoded(cookieCode(name));
}

function cookieRemove(name) {
  cookieWrite(name, '');
}

// Whether the browser keeps cookies of this page at all. It keeps none of pages that are read from a disk.
function cookiesWork() {
  var name = 'mrdcookietest', works;
  cookieWrite(name, '1');
  works = cookieCode(name) === '1';
  cookieRemove(name);
  return works;
}

// Letters, digits and four signs as they are, blanks as "+", all others by the bytes of their UTF-8. Half a pair, which is no
// character, is left out.
function cookieEncoded(text) {
  var whole = String(text).replace(/[\ud800-\udbff][\udc00-\udfff]|[\ud800-\udfff]/g, function (found) {
    return found.length === 2 ? found : '';
  });
  return encodeURIComponent(whole).replace(/[!'()*]/g, function (sign) {
    return '%' + sign.charCodeAt(0).toString(16).toUpperCase();
  }).replace(/%20/g, '+');
}

// Empty for what no cookieEncoded has written.
function cookieDecoded(code) {
  try {
    return decodeURIComponent(code.replace(/\+/g, '%20'));
  } catch (foreign) {
    return '';
  }
}

// All parts of a name together, as they are stored.
function cookieCode(name) {
  var code = '', part = 0, value = cookieValue(name + '0');
  while (value !== null && part < cookieParts) {
    code += value;
    part += 1;
    value = cookieValue(name + part);
  }
  return code;
}

function cookieWrite(name, code) {
  var part, piece;
  for (part = 0; part < cookieParts; part += 1) {
    piece = code.slice(part * cookiePartLength, (part + 1) * cookiePartLength);
    cookieSet(name + part, piece, piece === '' ? 0 : cookieDays * 24 * 60 * 60);
  }
}

// Without a path: the cookie belongs to the directory of the page, and not to other sites on the same server.
function cookieSet(name, value, seconds) {
  var end = new Date(seconds === 0 ? 0 : new Date().getTime() + seconds * 1000);
  document.cookie = name + '=' + value + '; expires=' + end.toUTCString() + '; samesite=lax' +
    (window.location.protocol === 'https:' ? '; secure' : '');
}

// The value as it is stored, null where there is no such cookie.
function cookieValue(name) {
  var cookies = String(document.cookie || '').split(';'), i, cookie;
  for (i = 0; i < cookies.length; i += 1) {
    cookie = cookies[i].replace(/^\s+/, '');
    if (cookie.indexOf(name + '=') === 0) { return cookie.slice(name.length + 1); }
  }
  return null;
}
