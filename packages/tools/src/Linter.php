<?php

declare(strict_types=1);

namespace Zorvel\Tools;

use Zorvel\DataWalk;
use Zorvel\Folders as ViewFolders;
use Zorvel\Strict\Check;
use Zorvel\TemplateError;
use Zorvel\Tools\Rule\Rules;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Includes;
use Zorvel\Tools\Template\Template;
use Zorvel\View;

/** Applies the rules to templates, then makes their pages, so that nothing that makes a page null is missed. */
final readonly class Linter
{
    private Includes $includes;

    private Rules $rules;

    /** @param ?array<array-key, mixed> $data for each page, when there is some */
    public function __construct(private Folders $folders, private ?array $data = null)
    {
        $this->includes = new Includes($folders);
        $this->rules = new Rules($folders, $this->includes);
    }

    /**
     * Of several errors about one tag, and of several warnings, the first is told.
     *
     * @param list<Template> $templates
     * @return list<Finding> by file and line, also of files that the templates include
     */
    public function lint(array $templates): array
    {
        $findings = [];
        foreach ([$this->rules->findings(...), $this->errorsOfPage(...), $this->silentTags(...)] as $findingsIn) {
            foreach ($templates as $template) {
                foreach ($findingsIn($template) as $finding) {
                    $findings["$finding->file:$finding->line:$finding->column:{$finding->level->value}"] ??= $finding;
                }
            }
        }
        usort($findings, fn(Finding $a, Finding $b): int => [$a->file, $a->line, $a->column] <=> [$b->file, $b->line, $b->column]);

        return $findings;
    }

    /** @return iterable<Finding> */
    private function errorsOfPage(Template $template): iterable
    {
        $folders = $this->folders->around($template->file);
        try {
            is_file($template->file) && @new View($folders->paths)->render($folders->nameOf($template->file));
        } catch (TemplateError $error) {
            $faulty = Template::fromFile($folders->find($error->getTemplate()) ?? $template->file);
            yield $faulty->finding($error->getTag()->offset ?? 0, Level::Error, 'broken-page', $error->getReason());
        }
    }

    /** @return iterable<Finding> what comes to nothing with the data; a template that others include is no page by itself */
    private function silentTags(Template $template): iterable
    {
        if ($this->data === null || !is_file($template->file) || $this->includes->has($template)) {
            return;
        }
        $folders = $this->folders->around($template->file);
        $name = $folders->nameOf($template->file);
        $data = new DataWalk($name, keepsNull: true)->plain($this->data);
        foreach (new ViewFolders($folders->paths)->searched(fn(): array => Check::findings($name, $data)) as $finding) {
            $place = Template::fromFile($folders->find($finding->template) ?? $template->file);
            yield $place->finding($finding->tag->offset, Level::Warning, 'silent-tag', $finding->what);
        }
    }
}
