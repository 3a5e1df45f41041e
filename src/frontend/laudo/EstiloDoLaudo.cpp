#include "frontend/laudo/EstiloDoLaudo.h"

namespace quilatador::laudo {

const std::string_view estilo = R"css(
:root{color-scheme:light dark;--fundo:#fcfcfa;--texto:#20242a;--suave:#555e68;--linha:#d2d7d0;--faixa:#f1f3ee;
--quadro:#fff;--elo:#1b586d;--ruim:#a3221b;--ruimF:#fbeae7;--atencao:#775000;--atencaoF:#fbf2da;--bom:#1d673a;
--bomF:#e6f3e9;--parte:#464b98;--parteF:#edeef9}
@media (prefers-color-scheme:dark){:root{--fundo:#1a1d21;--texto:#e5e7e4;--suave:#adb5bd;--linha:#444b53;--faixa:#25292e;
--quadro:#20242a;--elo:#8fcde2;--ruim:#ffa196;--ruimF:#3c2321;--atencao:#f1c65f;--atencaoF:#372d15;--bom:#8ad6a4;
--bomF:#1d3126;--parte:#b7bcff;--parteF:#2a2c46}}
*{box-sizing:border-box}
html{scroll-padding-top:1rem;-webkit-text-size-adjust:100%;text-size-adjust:100%}
body{margin:0 auto;max-width:64rem;padding:0 1.25rem 3rem;background:var(--fundo);color:var(--texto);
font:1rem/1.5 system-ui,"Segoe UI","Noto Sans",Arial,sans-serif}
h1,h2,h3,h4,h5{line-height:1.25;margin:0;text-wrap:balance}
h1{font-size:1.9rem;overflow-wrap:anywhere}
h2{font-size:1.35rem;margin:2.4rem 0 .6rem}
h3{font-size:1.12rem;margin:1.8rem 0 .7rem;padding-bottom:.25rem;border-bottom:2px solid var(--linha)}
h4{font-size:1.06rem}
h5{font-size:.88rem;font-weight:600;color:var(--suave);margin-top:.6rem}
p{margin:.45rem 0;max-width:52rem;overflow-wrap:anywhere}
code{font:.92em/1.4 ui-monospace,"Cascadia Mono","DejaVu Sans Mono",Consolas,monospace}
code i{font-style:normal;color:var(--suave);white-space:nowrap}
a{color:var(--elo);text-underline-offset:.15em}
:focus-visible{outline:3px solid var(--elo);outline-offset:2px;border-radius:2px}
.pula{position:absolute;left:-99rem}
.pula:focus{left:1rem;top:.5rem;z-index:2;padding:.4rem .8rem;background:var(--quadro)}
.suave{color:var(--suave)}
.topo{display:flex;flex-wrap:wrap;justify-content:space-between;gap:0 1rem;padding:.8rem 0;
border-bottom:1px solid var(--linha);color:var(--suave);font-size:.9rem}
.topo p{margin:0}
.tipo{margin:1.5rem 0 0;color:var(--suave)}
.ruim{--cor:var(--ruim);--corF:var(--ruimF)}.atencao{--cor:var(--atencao);--corF:var(--atencaoF)}
.bom{--cor:var(--bom);--corF:var(--bomF)}.parte{--cor:var(--parte);--corF:var(--parteF)}
.nada{--cor:var(--suave);--corF:var(--faixa)}
.sinal{width:1.05em;height:1.05em;flex:none;vertical-align:-.17em;margin-right:.4em;color:var(--cor)}
.dito{color:var(--cor);font-weight:600;white-space:nowrap}
.veredito{display:flex;gap:1rem;margin:1rem 0;padding:1rem 1.2rem;background:var(--corF);border:1px solid var(--cor);
border-left-width:8px;border-radius:4px}
.veredito .sinal{width:2.4rem;height:2.4rem;margin:0;--furo:var(--corF)}
.veredito h2{margin:0;font-size:1.5rem;color:var(--cor);overflow-wrap:anywhere}
.veredito p{margin:.3rem 0 0}
.numeros{display:grid;grid-template-columns:repeat(auto-fit,minmax(8.5rem,15rem));gap:.6rem;margin:1rem 0}
.numeros div{display:flex;flex-direction:column-reverse;justify-content:flex-end;padding:.5rem .8rem;
background:var(--quadro);border:1px solid var(--linha);border-top:4px solid var(--cor);border-radius:3px}
.numeros dt{font-size:.88rem;color:var(--suave)}
.numeros dd{margin:0;font-size:1.6rem;font-weight:700;line-height:1.15;font-variant-numeric:tabular-nums}
.nota{max-width:none;padding:.7rem 1rem;background:var(--faixa);border-left:4px solid var(--elo)}
.rolo{overflow-x:auto}
table{border-collapse:collapse;width:100%;font-size:.93rem}
th,td{padding:.4rem .6rem;text-align:left;vertical-align:top;border-bottom:1px solid var(--linha);overflow-wrap:anywhere}
tbody th{font-weight:600}
thead th{color:var(--suave);border-bottom-width:2px;white-space:nowrap}
.n{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}
.ficha{margin:0}
.ficha div{display:grid;grid-template-columns:11rem minmax(0,1fr);gap:0 1rem;padding:.35rem 0;
border-bottom:1px solid var(--linha)}
dt{color:var(--suave)}dd{margin:0;overflow-wrap:anywhere}
.legenda{padding:.3rem 1rem;background:var(--faixa);border-radius:4px;font-size:.93rem}
.legenda p{max-width:none}
#filtro form{display:flex;flex-wrap:wrap;gap:.5rem 1rem;align-items:center;margin:1rem 0;padding:.7rem 1rem;
border:1px solid var(--linha);border-radius:4px;background:var(--quadro)}
#filtro label{display:inline-flex;gap:.4rem;align-items:center}
#filtro label.busca{flex:1 1 18rem;max-width:100%;min-width:0}
#filtro input[type=search]{flex:1;min-width:0;width:100%;font:inherit;padding:.35rem .6rem;border:1px solid var(--suave);
border-radius:3px;background:var(--fundo);color:var(--texto)}
#filtro input[type=checkbox]{width:1.15rem;height:1.15rem;accent-color:var(--elo)}
#filtro output{flex-basis:100%;color:var(--suave);font-size:.93rem}
button{font:inherit;padding:.35rem .8rem;border:1px solid var(--suave);border-radius:3px;background:var(--faixa);
color:var(--texto);cursor:pointer}
.achado{margin:0 0 1rem;background:var(--quadro);border:1px solid var(--linha);border-left:5px solid var(--cor);
border-radius:4px}
.achado:target{outline:3px solid var(--elo);outline-offset:2px}
.achado h4{padding:.65rem 1rem}
.achado h4 .dito{margin-right:.6rem}
.titulo{display:inline;overflow-wrap:anywhere}
.dobra{all:unset;box-sizing:border-box;cursor:pointer;display:flex;flex-wrap:wrap;align-items:baseline;width:100%}
.dobra:focus-visible{outline:3px solid var(--elo);outline-offset:2px;border-radius:2px}
.dobra .titulo{flex:1 1 12rem}
.dobra::after{content:"recolher";margin-left:.8rem;font-size:.85rem;font-weight:400;color:var(--elo);
text-decoration:underline}
.dobra[aria-expanded=false]::after{content:"abrir"}
.corpo{padding:0 1rem .6rem}
.onde{margin:0 0 .6rem;max-width:none;font-size:.95rem}
.duas{display:grid;grid-template-columns:minmax(0,1fr) 17rem;gap:0 1.5rem}
.duas.so{grid-template-columns:minmax(0,1fr)}
.remedio{padding-left:1.2rem;border-left:1px solid var(--linha);font-size:.95rem}
.remedio h5:first-child{margin-top:0}.remedio p{margin:.1rem 0 .6rem}
.par{display:grid;grid-template-columns:auto minmax(0,1fr);gap:.1rem .8rem;margin:0 0 .7rem}
.par dt{font-size:.88rem;text-align:right}.par code{overflow-wrap:anywhere}
.par .e{padding:0 .3rem;background:var(--ruimF);box-shadow:inset 0 -2px 0 var(--ruim)}
.par .c{padding:0 .3rem;background:var(--bomF);box-shadow:inset 0 -2px 0 var(--bom)}
mark{background:none;color:inherit;font-weight:700;text-decoration:underline;text-decoration-thickness:2px;
text-underline-offset:.2em}
.e mark{color:var(--ruim)}.c mark{color:var(--bom)}
.regua{display:flex;flex-wrap:wrap;list-style:none;margin:.2rem 0 .6rem;padding:1px 0 0 1px}
.regua::after{content:"";flex:1000 1 0}
.regua li{display:flex;flex-direction:column;flex:1 1 auto;min-width:3.2rem;max-width:100%;margin:-1px 0 0 -1px;
padding:.2rem .5rem .3rem;border:1px solid var(--linha);background:var(--fundo)}
.regua span{font-size:.74rem;color:var(--suave);font-variant-numeric:tabular-nums}
.regua b{font-size:.8rem;font-weight:600;line-height:1.2}
.regua code{min-height:1.4em;overflow-wrap:anywhere}
.regua small{font-size:.76rem;color:var(--suave)}
.regua em{font-style:normal;font-weight:700;font-size:.76rem}
.regua .x,.regua .d{position:relative;z-index:1;border:2px solid var(--cor)}
.regua .x{background:var(--corF)}.regua .x em{color:var(--cor)}
.regua .d{border-style:dashed;border-color:var(--suave)}
.lugares{list-style:none;columns:17rem;margin:.2rem 0 .5rem;padding:0;font-size:.9rem}
.lugares li{break-inside:avoid}
.decorre{margin:.5rem 0;padding:.5rem .9rem;background:var(--faixa);border-left:3px dashed var(--suave)}
.decorre h5{margin:0;color:var(--texto)}
.decorre table{font-size:.9rem}.decorre tbody tr:last-child td{border-bottom:0}
.regra{max-width:none;font-size:.84rem;color:var(--suave)}
footer{margin-top:3rem;padding-top:1rem;border-top:1px solid var(--linha);font-size:.9rem;color:var(--suave)}
footer p{max-width:none}
@media (max-width:52rem){.duas{grid-template-columns:minmax(0,1fr)}
.remedio{padding:.5rem 0 0;border:0;border-top:1px solid var(--linha)}}
@media (max-width:34rem){body{padding:0 .8rem 2rem}h1{font-size:1.5rem}.veredito{padding:.8rem;gap:.7rem;
border-left-width:5px}.veredito .sinal{width:1.7rem;height:1.7rem}.veredito h2{font-size:1.22rem}
.numeros{grid-template-columns:1fr 1fr}.ficha div{grid-template-columns:minmax(0,1fr)}
.achado h4{padding:.6rem .7rem}.corpo{padding:0 .7rem .5rem}
.blocos thead{position:absolute;left:-99rem}
.blocos tr{display:block;padding:.45rem 0;border-bottom:1px solid var(--linha)}
.blocos td,.blocos th{display:inline-block;border:0;padding:.05rem .9rem .05rem 0;text-align:left;white-space:normal}
.blocos tbody th,.blocos td:first-child{display:block}
.blocos [data-t]::before{content:attr(data-t) ": ";color:var(--suave);font-weight:400}}
@media (forced-colors:active){.regua .x{border-width:4px}.veredito,.achado{border-left-width:8px}}
@page{size:A4;margin:14mm 13mm 16mm;
@bottom-left{content:"Quilatador de Leiaute · laudo de conferência";font:8pt sans-serif;color:#4a4f55}
@bottom-right{content:counter(page) " de " counter(pages);font:8pt sans-serif;color:#4a4f55}}
@media print{:root{color-scheme:light;--fundo:#fff;--quadro:#fff;--texto:#000;--suave:#4a4f55;--linha:#bbb;
--faixa:#f3f3f0;--elo:#1b586d;--ruim:#a3221b;--ruimF:#fbeae7;--atencao:#775000;--atencaoF:#fbf2da;--bom:#1d673a;
--bomF:#e6f3e9;--parte:#464b98;--parteF:#edeef9}
*{print-color-adjust:exact;-webkit-print-color-adjust:exact}
html{font-size:9pt}body{max-width:none;padding:0}h1{font-size:17pt}h2{margin-top:1.4rem}
a{color:inherit;text-decoration:none}
#filtro,.pula,.dobra::after{display:none!important}
[hidden]{display:revert!important}
.numeros{grid-template-columns:repeat(5,1fr)}
.duas{display:block}.remedio p{break-inside:avoid}.remedio{columns:2;column-gap:6mm;padding:.4rem 0 0;border:0;border-top:1px solid var(--linha)}
.rolo{overflow:visible}.lugares{columns:3}
h2,h3,h4,h5,.onde,thead{break-after:avoid}
tr,.achado,.regua,.veredito,.numeros,.nota,.par,.remedio{break-inside:avoid}
.regra{break-before:avoid}th,td{padding:.25rem .45rem}
.achado{box-decoration-break:clone;-webkit-box-decoration-break:clone}}
)css";

const std::string_view sinais = R"svg(<svg width="0" height="0" aria-hidden="true" style="position:absolute">
<symbol id="s-ruim" viewBox="0 0 20 20"><path d="M6.2 1h7.6L19 6.2v7.6L13.8 19H6.2L1 13.8V6.2z" fill="currentColor"/>
<path d="M6.5 6.5l7 7m0-7l-7 7" stroke="var(--furo,var(--fundo))" stroke-width="2.2" stroke-linecap="round"/></symbol>
<symbol id="s-atencao" viewBox="0 0 20 20"><path d="M10 1.2L19.4 18.4H.6z" fill="currentColor"/>
<path d="M10 7v5.2m0 3v.1" stroke="var(--furo,var(--fundo))" stroke-width="2.2" stroke-linecap="round"/></symbol>
<symbol id="s-bom" viewBox="0 0 20 20"><circle cx="10" cy="10" r="9.2" fill="currentColor"/>
<path d="M5.6 10.4l3 3 5.8-6.4" fill="none" stroke="var(--furo,var(--fundo))" stroke-width="2.2" stroke-linecap="round"
stroke-linejoin="round"/></symbol>
<symbol id="s-parte" viewBox="0 0 20 20"><circle cx="10" cy="10" r="8.2" fill="none" stroke="currentColor"
stroke-width="2"/><path d="M10 1.8a8.2 8.2 0 010 16.4z" fill="currentColor"/></symbol>
<symbol id="s-nada" viewBox="0 0 20 20"><circle cx="10" cy="10" r="8.2" fill="none" stroke="currentColor"
stroke-width="2"/><path d="M5.8 10h8.4" stroke="currentColor" stroke-width="2.2" stroke-linecap="round"/></symbol></svg>
)svg";

const std::string_view roteiro = R"js(
(function(){'use strict';
var um=function(s,e){return (e||document).querySelector(s)},todos=function(s,e){return [].slice.call((e||document).querySelectorAll(s))};
function rolos(){todos('.rolo').forEach(function(r){if(r.scrollWidth>r.clientWidth)r.tabIndex=0;else r.removeAttribute('tabindex')})}
addEventListener('resize',rolos);rolos();
var vez=0;
function dobrar(titulo,corpo,aberto){var b=document.createElement('button');corpo.id=corpo.id||'corpo'+(++vez);
 b.type='button';b.className='dobra';b.setAttribute('aria-controls',corpo.id);
 while(titulo.firstChild)b.appendChild(titulo.firstChild);titulo.appendChild(b);
 b.onclick=function(){abrir(b,corpo.hidden)};corpo.dobra=b;abrir(b,aberto)}
function abrir(b,sim){document.getElementById(b.getAttribute('aria-controls')).hidden=!sim;b.setAttribute('aria-expanded',sim?'true':'false')}
todos('.decorre').forEach(function(d){dobrar(um('h5',d),um('.rolo',d),false)});
var achados=todos('.achado');if(!achados.length)return;
achados.forEach(function(a){dobrar(um('h4',a),um('.corpo',a),true)});
var palavras={erro:'Erros',ocorrencia:'Ocorrências',aviso:'Avisos',discutido:'Discutidos'};
var presentes=Object.keys(palavras).filter(function(c){return um('.achado[data-c='+c+']')});
var f=document.createElement('form');f.setAttribute('role','search');f.setAttribute('aria-label','Filtrar os achados');
f.innerHTML='<label class="busca">Filtrar <input type="search" placeholder="linha, guia, campo ou texto"></label>'+
 (presentes.length>1?presentes.map(function(c){return '<label><input type="checkbox" checked value="'+c+'"> '+palavras[c]+'</label>'}).join(''):'')+
 '<button type="button">Recolher todos</button><output></output>';
um('#filtro').appendChild(f);
var busca=um('[type=search]',f),dito=um('output',f),botao=um('button',f);
function simples(t){return t.normalize('NFD').replace(/[\u0300-\u036f]/g,'').toLowerCase()}
var textos=achados.map(function(a){return simples(a.textContent)});
function filtrar(){var partes=simples(busca.value.trim()).split(/\s+/),classes={},vistos=0;
 todos('[type=checkbox]',f).forEach(function(c){classes[c.value]=c.checked});
 achados.forEach(function(a,i){var sim=classes[a.dataset.c]!==false&&partes.every(function(p){return textos[i].indexOf(p)>=0});a.hidden=!sim;if(sim)vistos++});
 todos('#achados section').forEach(function(s){s.hidden=!um('.achado:not([hidden])',s)});
 dito.textContent=vistos===achados.length?'Todos os '+achados.length+' à vista':vistos+' de '+achados.length+' à vista'+(vistos?'':': mude o texto ou marque mais classes')}
if(achados.length<2)um('#filtro').hidden=true;
f.addEventListener('input',filtrar);f.addEventListener('submit',function(e){e.preventDefault()});
botao.onclick=function(){var sim=botao.textContent==='Abrir todos';achados.forEach(function(a){abrir(um('.corpo',a).dobra,sim)});botao.textContent=sim?'Recolher todos':'Abrir todos'};
function ir(){var a=document.getElementById(location.hash.slice(1));if(!a||!a.classList.contains('achado'))return;
 a.hidden=false;a.parentNode.hidden=false;abrir(um('.corpo',a).dobra,true);a.scrollIntoView();um('.dobra',a).focus({preventScroll:true})}
addEventListener('hashchange',ir);ir();filtrar()})();
)js";

} // namespace quilatador::laudo
