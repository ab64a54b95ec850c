// Orders a paper print of a picture: hands the picture's full address to a photo print service.
// Called by the links of the order icons: javascript:picturetransfer('http://.../pix/x.jpg','partner id').

// The service's order page. A value of the deployment; everything else about the service is in picturetransfer below.
var picturetransferService = 'https://fotoservice.mirandel.example/bestellung';

function picturetransfer(address, partner) {
  var picture = picturetransferAddress(address), order;
  if (picture === '') {
    window.alert('Dieses Bild kann erst bestellt werden, wenn die Seite im Internet steht.');
    return;
  }
  order = picturetransferService + '?bild=' + encodeURIComponent(picture);
  if (partner) { order += '&partner=' + encodeURIComponent(partner); }
  window.open(order, 'bildbestellung');
}

// The address under which the service can fetch the picture, empty if there is none: a picture on the visitor's or the
// author's own disk cannot be fetched. A site's address may stand in the links without its "http://".
function picturetransferAddress(address) {
  var text = String(address == null ? '' : address).replace(/^\s+|\s+$/g, '');
  if (/^https?:\/\/[^\/]/i.test(text)) { return text; }
  if (/^[a-z][a-z0-9+.\-]*:/i.test(text) && !/^[a-z0-9.\-]+:[0-9]+\//i.test(text)) { return ''; }
  if (/^[a-z0-9\-]+(\.[a-z0-9\-]+)+(:[0-9]+)?\//i.test(text)) { return 'http://' + text; }
  return picturetransferRelative(text);
}

function picturetransferRelative(text) {
  var link;
  if (text === '' || !/^https?:$/i.test(window.location.protocol)) { return ''; }
  link = document.createElement('a');
  link.href = text;
  return /^https?:\/\//i.test(link.href) ? link.href : '';
}
