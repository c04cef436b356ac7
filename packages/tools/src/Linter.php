<?php

declare(strict_types=1);

namespace Zorvel\Tools;

use Zorvel\Tools\Rule\Rule;
use Zorvel\Tools\Rule\Rules;
use Zorvel\Tools\Template\Engine;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\SampleData;
use Zorvel\Tools\Template\Template;

/** Applies the rules to templates, then lets the extension render each, so that nothing that makes a page null is missed. */
final readonly class Linter
{
    private Engine $engine;

    private Rules $rules;

    public function __construct(private Folders $folders)
    {
        $this->engine = new Engine();
        $this->rules = new Rules($folders, $this->engine);
    }

    /**
     * @param iterable<Template> $templates
     * @return list<Finding> by file and line, also of files that the templates include
     */
    public function lint(iterable $templates): array
    {
        $findings = [];
        foreach ($templates as $template) {
            foreach ($this->findingsIn($template) as $finding) {
                $findings["$finding->file:$finding->line:$finding->column:$finding->rule"] = $finding;
            }
        }
        usort($findings, fn(Finding $a, Finding $b): int => [$a->file, $a->line, $a->column] <=> [$b->file, $b->line, $b->column]);

        return $findings;
    }

    /** @return iterable<Finding> */
    private function findingsIn(Template $template): iterable
    {
        yield from $this->errorsIn($template);
        yield from $this->errorsOfPage($template, []);
        yield from $this->errorsOfPage($template, SampleData::forLoopsOf($template));
        yield from $this->warningsIn($template);
    }

    /** @return list<Finding> */
    private function errorsIn(Template $template): array
    {
        return array_merge(...array_map(
            fn(Rule $rule, string $name): array => $this->apply($rule, $name, Level::Error, $template),
            $this->rules->errors,
            array_keys($this->rules->errors),
        ));
    }

    /** @return array<int, Finding> one for each place */
    private function warningsIn(Template $template): array
    {
        $findings = [];
        foreach ($this->rules->warnings as $name => $rule) {
            $findings += $this->apply($rule, $name, Level::Warning, $template);
        }

        return $findings;
    }

    /** @return array<int, Finding> by the byte of the template */
    private function apply(Rule $rule, string $name, Level $level, Template $template): array
    {
        $findings = [];
        foreach ($rule->check($template) as $offset => $message) {
            $findings[$offset] = $template->finding($offset, $level, $name, $message);
        }

        return $findings;
    }

    /**
     * What makes the page null: the findings of the rules about the same, or one of its own.
     *
     * @param array<mixed> $data
     * @return list<Finding>
     */
    private function errorsOfPage(Template $template, array $data): array
    {
        $folders = $this->folders->around($template->file);
        $source = $template->isText ? $template->text : $folders->nameOf($template->file);
        [$fault, $name] = $this->engine->faultWithName($source, $data, $template->isText, $folders) ?? [null, ''];
        if ($fault === null) {
            return [];
        }
        $included = $name === $source ? null : $folders->find($name);
        $faulty = $included === null ? $template : Template::fromFile($included);
        $finding = $faulty->finding($this->place($fault, $faulty), Level::Error, 'broken-page', $fault);
        $explained = array_filter($this->errorsIn($faulty), fn(Finding $known): bool => str_starts_with($known->message, $finding->message));

        return $explained === [] ? [$finding] : array_values($explained);
    }

    /** Where the tag stands whose parameter the fault cites; the template's first byte when there is none. */
    private function place(string $fault, Template $template): int
    {
        foreach ($template->tags as $tag) {
            if ($tag->parameter !== '' && str_contains($fault, "'$tag->parameter'")) {
                return $tag->offset;
            }
        }

        return 0;
    }
}
